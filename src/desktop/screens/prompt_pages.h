#pragma once

#include "core/link_target.h"
#include "core/prompts.h"

#include <QWidget>

#include <functional>
#include <optional>

class DateField;
class QLineEdit;
class QTableView;

/// The pages of PromptDialog: the fields between its balloon and its buttons. Each takes the focus
/// for its first field.

/// A line of text.
class InputPage : public QWidget {
    Q_OBJECT

public:
    /// `question` is what a screen reader says of the field.
    InputPage(const QString& question, const QString& proposal);
    QString text() const;

private:
    QLineEdit* m_field;
};

/// Two calendars for the first and the last day of a period.
class PeriodPage : public QWidget {
    Q_OBJECT

public:
    PeriodPage(const DatePeriod& limits, QDate today);
    /// The period; nothing unless both dates exist and are in order.
    std::optional<DatePeriod> period() const;

private:
    DateField* m_first;
    DateField* m_last;
};

/// The path and the name of a link.
class LinkPage : public QWidget {
    Q_OBJECT

public:
    LinkPage(const QString& name, const QString& path, Prompts& prompts);
    QString name() const;
    QString path() const;
    /// Whether the link can be made; if not the person is told why.
    bool check();

private:
    void browse();

    QLineEdit* m_path;
    QLineEdit* m_name;
    Prompts& m_prompts;
};

/// A grid of links.
class AllLinksPage : public QWidget {
    Q_OBJECT

public:
    AllLinksPage(QList<FileLink> links, std::function<void(const FileLink&)> open);

private:
    void fill();
    void openCurrent();

    QList<FileLink> m_links;
    std::function<void(const FileLink&)> m_open;
    QTableView* m_grid;
};
