#include "settings/screens/general_page.h"

#include "core/paths.h"
#include "core/prompts.h"
#include "core/session.h"
#include "settings/password_change.h"
#include "settings/screens/setting_controls.h"
#include "settings/settings_pages.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QPushButton* actButton(const QString& name, const QString& caption) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    return button;
}

} // namespace

GeneralSettings::GeneralSettings(Session& session) : m_session(session) {
    auto* tabs = new QTabWidget;
    tabs->setObjectName(u"GeneralTabs"_s);
    tabs->addTab(makeClosingTab(), u"When Closing ORVA:"_s);
    tabs->addTab(makePasswordTab(), u"Password Protection:"_s);
    tabs->addTab(makeDatabaseTab(), u"Default Database:"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(tabs);
}

QWidget* GeneralSettings::makeClosingTab() {
    const QStringList captions{
        u"Don't Compress && Backup the database. (must be done manually)"_s,
        u"Prompt to Comapct && Backup the current databases."_s,
        u"Automatically Compact && Backup the current database."_s,
        u"Automatically Backup (without compressing)"_s,
    };
    auto* tab = new QWidget;
    auto* layout = new QVBoxLayout(tab);
    for (size_t i = 0; i < m_closing.size(); ++i) {
        m_closing.at(i) = new QRadioButton(captions.at(static_cast<qsizetype>(i)));
        m_closing.at(i)->setObjectName(u"Option1(%1)"_s.arg(i));
        layout->addWidget(m_closing.at(i));
    }
    layout->addWidget(explanation(
        u"The backup options, by default, create 5 backup files with the extentions 001 to 005. "
        "The file with the extention 001 is the latest backup for the particular database."_s));
    auto* now = actButton(u"BackupNow"_s, u"&Backup now"_s);
    connect(now, &QPushButton::clicked, this, [this] {
        if (!m_session.GetWindows().backUpNow())
            emit yearLost();
    });
    layout->addWidget(now, 0, Qt::AlignLeft);
    m_checksForUpgrade = new QCheckBox(u"Look for a newer version after a database was opened"_s);
    m_checksForUpgrade->setObjectName(u"Check3"_s);
    layout->addWidget(m_checksForUpgrade);
    layout->addStretch();
    return tab;
}

QWidget* GeneralSettings::makePasswordTab() {
    const QStringList captions{u"Enter Old Password:"_s, u"Enter Password:"_s,
                               u"Retype Password:"_s};
    auto* tab = new QWidget;
    auto* layout = new QFormLayout(tab);
    layout->addRow(explanation(
        u"A password keeps others from reading the database that is open. It can be up to 14 "
        "characters long, and nobody can open the database without it."_s));
    for (size_t i = 0; i < m_passwords.size(); ++i) {
        auto* box = new QLineEdit;
        box->setObjectName(u"Text1(%1)"_s.arg(i));
        box->setAccessibleName(captions.at(static_cast<qsizetype>(i)));
        box->setEchoMode(QLineEdit::Password);
        box->setMaxLength(LongestPassword);
        layout->addRow(captions.at(static_cast<qsizetype>(i)), box);
        m_passwords.at(i) = box;
    }
    auto* set = actButton(u"SetPassword"_s, u"&Set Password"_s);
    connect(set, &QPushButton::clicked, this, [this] {
        const PasswordChange result = SetPassword(m_session, m_passwords[0]->text(),
                                                  m_passwords[1]->text(), m_passwords[2]->text());
        if (result == PasswordChange::Done)
            clearPasswords(0);
        else if (result == PasswordChange::Mismatch)
            clearPasswords(1);
    });
    auto* remove = actButton(u"RemovePassword"_s, u"&Remove Password"_s);
    connect(remove, &QPushButton::clicked, this, [this] {
        if (RemovePassword(m_session, m_passwords[0]->text()))
            m_passwords[0]->clear();
    });
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(set);
    buttons->addWidget(remove);
    buttons->addStretch();
    layout->addRow(buttons);
    return tab;
}

QWidget* GeneralSettings::makeDatabaseTab() {
    m_default = new QLabel;
    m_default->setObjectName(u"LbDefault"_s);
    m_default->setTextFormat(Qt::PlainText);
    m_default->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    auto* choose = actButton(u"ChooseDefault"_s, u"&Choose Database..."_s);
    connect(choose, &QPushButton::clicked, this, [this] {
        setDefault(
            m_session.ChooseDatabaseFile(u"Select the database you would like as the default:"_s));
    });
    m_skipsWizard = new QCheckBox(u"&Open it without the startup wizard"_s);
    m_skipsWizard->setObjectName(u"Check1"_s);
    auto* tab = new QWidget;
    auto* layout = new QVBoxLayout(tab);
    layout->addWidget(explanation(u"The default database can be opened each time that ORVA starts. "
                                  "Cancel the choice to have none."_s));
    layout->addWidget(m_default);
    layout->addWidget(choose, 0, Qt::AlignLeft);
    layout->addWidget(m_skipsWizard);
    layout->addStretch();
    return tab;
}

void GeneralSettings::setDefault(const QString& path) {
    m_defaultPath = path;
    m_default->setText(path.isEmpty() ? QString() : ShortenPath(path));
    m_default->setToolTip(path);
    if (path.isEmpty())
        m_skipsWizard->setChecked(false);
    m_skipsWizard->setEnabled(!path.isEmpty());
}

void GeneralSettings::clearPasswords(qsizetype first) {
    for (size_t i = static_cast<size_t>(first); i < m_passwords.size(); ++i)
        m_passwords.at(i)->clear();
    m_passwords.at(static_cast<size_t>(first))->setFocus();
}

void GeneralSettings::acquire() {
    const GeneralValues page = readGeneral(m_session.GetSettings());
    m_closing.at(static_cast<size_t>(page.closing))->setChecked(true);
    m_checksForUpgrade->setChecked(page.checksForUpgrade);
    m_skipsWizard->setChecked(page.skipsWizard);
    setDefault(page.defaultDatabase);
}

bool GeneralSettings::apply() {
    GeneralValues page{.defaultDatabase = m_defaultPath,
                       .skipsWizard = m_skipsWizard->isChecked(),
                       .checksForUpgrade = m_checksForUpgrade->isChecked()};
    for (size_t i = 0; i < m_closing.size(); ++i) {
        if (m_closing.at(i)->isChecked())
            page.closing = static_cast<ClosingBackup>(i);
    }
    Apply_General(m_session.GetSettings(), page);
    return true;
}
