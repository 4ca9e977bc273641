#pragma once

#include <QDialog>

class CharacterModel;
class QComboBox;
class QFontComboBox;
class QLabel;
class QPushButton;
class QTableView;

/// The character chooser: a font, the characters that it has, and the chosen one in large.
class SymbolDialog : public QDialog {
    Q_OBJECT

public:
    explicit SymbolDialog(QWidget* parent = nullptr);

    /// Answers one text: the first character is the symbol, the rest the name of its font; empty
    /// when it was cancelled.
    QString ask();

private:
    void makeControls();
    void showCharacters();
    void showChosen();
    QString chosen() const;

    QFontComboBox* m_fonts;
    QComboBox* m_groups;
    CharacterModel* m_characters;
    QTableView* m_table;
    QLabel* m_large;
    QLabel* m_code;
    QPushButton* m_ok = nullptr;
};
