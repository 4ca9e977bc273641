#include "year/screens/file_page.h"

#include "controls/restricted_edit.h"
#include "core/paths.h"
#include "core/prompts.h"
#include "year/wizard_rules.h"

#include <QDir>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int LongestFileName = 200;

} // namespace

FilePage::FilePage(const QString& folder, const FilePageNames& names, Prompts& prompts)
    : m_prompts(prompts)
    , m_name(new RestrictedEdit(u"Name of the "_s + names.file, isFileNameCharacter))
    , m_location(new QLabel) {
    m_name->setObjectName(names.name);
    m_name->setMaxLength(LongestFileName);
    m_location->setObjectName(names.location);
    m_location->setTextFormat(Qt::PlainText);
    auto* browse = new QPushButton(u"Chan&ge..."_s);
    browse->setObjectName(names.change);
    browse->setAccessibleName(u"Change the location of the "_s + names.file);
    browse->setAutoDefault(true);
    showFolder(folder);
    setFocusProxy(m_name);

    auto* location = new QHBoxLayout;
    location->addWidget(m_location, 1);
    location->addWidget(browse);
    auto* form = new QFormLayout(this);
    form->addRow(names.caption, m_name);
    form->addRow(u"Location:"_s, location);

    connect(m_name, &QLineEdit::textEdited, this,
            [this] { m_hasTypedName = !m_name->text().isEmpty(); });
    connect(m_name, &RestrictedEdit::refused, this, [this] {
        m_prompts.PlainBox(u"This character is not allowed in a filename!"_s,
                           OkButton | WarningIcon, u"Invalid Character"_s);
    });
    connect(browse, &QPushButton::clicked, this, &FilePage::chooseFolder);
}

void FilePage::propose(const QString& name) {
    if (!m_hasTypedName)
        m_name->setText(name);
}

QString FilePage::name() const {
    return m_name->text();
}

void FilePage::chooseFolder() {
    const QString folder = m_prompts.ChooseFolder(u"Select a directory location:"_s);
    if (!folder.isEmpty())
        showFolder(folder.endsWith(QDir::separator()) ? folder : folder + QDir::separator());
}

void FilePage::showFolder(const QString& folder) {
    m_folder = folder;
    m_location->setText(ShortenPath(folder));
    m_location->setToolTip(folder);
}
