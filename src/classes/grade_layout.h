#pragma once

#include <QList>
#include <QString>

class Settings;

/// How a class's grades are laid out, kept in the settings under a key of the class.

/// Which grid a row height belongs to, by number.
enum class LayoutKind { Grades = 0, Notes = 1 };

/// No row is lower, in twips; and so high is one of which nothing is kept.
inline constexpr int LowestRow = 225;

struct ColumnLayout {
    QString field;
    int width = 0; ///< twips; 0: the grid's usual width
    bool isHidden = false;
};

/// Keeps the columns' widths and which of them are hidden; what was kept of columns that are gone
/// goes. Names and `ID` are left out.
void saveColumns(Settings& settings, const QString& classCode, const QList<ColumnLayout>& columns);
/// What is kept of the columns of these fields, in their order.
QList<ColumnLayout> loadColumns(const Settings& settings, const QString& classCode,
                                const QStringList& fields);

/// The height of the rows, in twips, at least LowestRow.
int loadRowHeight(const Settings& settings, const QString& classCode, LayoutKind kind);
/// Keeps a height, raised to LowestRow; answers what is kept.
int saveRowHeight(Settings& settings, const QString& classCode, LayoutKind kind, int height);
