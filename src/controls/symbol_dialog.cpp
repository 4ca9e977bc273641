#include "controls/symbol_dialog.h"

#include "controls/character_model.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontComboBox>
#include <QFontInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

SymbolDialog::SymbolDialog(QWidget* parent)
    : QDialog(parent)
    , m_fonts(new QFontComboBox)
    , m_groups(new QComboBox)
    , m_characters(new CharacterModel(this))
    , m_table(new QTableView)
    , m_large(new QLabel)
    , m_code(new QLabel) {
    setObjectName(u"frmChars"_s);
    setWindowTitle(u"Symbol"_s);
    makeControls();
    connect(m_fonts, &QFontComboBox::currentFontChanged, this, &SymbolDialog::showCharacters);
    connect(m_groups, &QComboBox::currentIndexChanged, this, &SymbolDialog::showCharacters);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &SymbolDialog::showChosen);
    connect(m_table, &QTableView::activated, this, [this] {
        if (m_ok->isEnabled())
            accept();
    });
    showCharacters();
}

void SymbolDialog::makeControls() {
    m_fonts->setObjectName(u"cmbFont"_s);
    m_fonts->setEditable(false);
    m_fonts->setCurrentFont(QFont(QFontInfo(font()).family()));
    m_groups->setObjectName(u"cmbGroup"_s);
    for (const CharacterGroup& group : characterGroups())
        m_groups->addItem(group.name);
    auto* choices = new QFormLayout;
    choices->addRow(u"&Font:"_s, m_fonts);
    choices->addRow(u"&Characters:"_s, m_groups);

    m_table->setObjectName(u"grdChars"_s);
    m_table->setAccessibleName(u"Characters"_s);
    m_table->setModel(m_characters);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setTabKeyNavigation(false);
    constexpr int cell = 30;
    for (QHeaderView* header : {m_table->horizontalHeader(), m_table->verticalHeader()}) {
        header->hide();
        header->setMinimumSectionSize(cell);
        header->setDefaultSectionSize(cell);
    }
    m_table->setMinimumSize(16 * cell + 24, 9 * cell);

    m_large->setAlignment(Qt::AlignCenter);
    m_large->setFrameStyle(QFrame::StyledPanel);
    m_large->setMinimumSize(90, 90);
    m_large->setTextFormat(Qt::PlainText);
    m_large->setObjectName(u"lbLarge"_s);
    m_code->setAlignment(Qt::AlignCenter);
    auto* chosenColumn = new QVBoxLayout;
    chosenColumn->addWidget(m_large);
    chosenColumn->addWidget(m_code);
    chosenColumn->addStretch();
    auto* middle = new QHBoxLayout;
    middle->addWidget(m_table, 1);
    middle->addLayout(chosenColumn);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(choices);
    layout->addLayout(middle);
    layout->addWidget(buttons);
}

void SymbolDialog::showCharacters() {
    const QChar kept = m_characters->characterAt(m_table->currentIndex());
    QFont font(m_fonts->currentFont().family(), 13);
    m_characters->show(font, characterGroups().at(m_groups->currentIndex()));
    m_table->setFont(font);
    font.setPointSize(44);
    m_large->setFont(font);
    const QModelIndex same = m_characters->indexOf(kept);
    m_table->setCurrentIndex(same.isValid() ? same : m_characters->index(0, 0));
    showChosen();
}

void SymbolDialog::showChosen() {
    const QChar character = m_characters->characterAt(m_table->currentIndex());
    m_ok->setEnabled(!character.isNull());
    m_large->setText(character.isNull() ? QString() : QString(character));
    m_code->setText(character.isNull() ? QString() : codeText(character));
}

QString SymbolDialog::chosen() const {
    const QChar character = m_characters->characterAt(m_table->currentIndex());
    return character.isNull() ? QString() : character + m_fonts->currentFont().family();
}

QString SymbolDialog::ask() {
    return exec() == QDialog::Accepted ? chosen() : QString();
}
