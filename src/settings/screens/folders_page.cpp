#include "settings/screens/folders_page.h"

#include "core/prompts.h"
#include "core/session.h"
#include "settings/screens/setting_controls.h"
#include "settings/settings_pages.h"

#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FolderSettings::FolderSettings(Session& session) : m_session(session), m_list(new QListWidget) {
    m_list->setObjectName(u"List2"_s);
    m_list->setAccessibleName(u"Folders"_s);
    auto* change = new QPushButton(u"&Change Folder..."_s);
    change->setObjectName(u"ChangeFolder"_s);
    connect(change, &QPushButton::clicked, this, &FolderSettings::choose);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &FolderSettings::choose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(explanation(u"Dialogs for opening and saving files begin in these folders. "
                                  "Backups are kept in the third."_s));
    layout->addWidget(m_list, 1);
    layout->addWidget(change, 0, Qt::AlignLeft);
}

void FolderSettings::acquire() {
    m_folders = m_session.FolderDefaults;
    m_list->clear();
    for (int row = 0; row < static_cast<int>(m_folders.size()); ++row) {
        m_list->addItem(QString());
        showRow(row);
    }
    m_list->setCurrentRow(0);
}

void FolderSettings::showRow(int row) {
    const FolderDefault& folder = m_folders.at(static_cast<size_t>(row));
    m_list->item(row)->setText(folder.label + u'\t' + folder.shortFolder);
    m_list->item(row)->setToolTip(folder.folder);
}

void FolderSettings::choose() {
    const int row = m_list->currentRow();
    const QString folder =
        row < 0 ? QString()
                : m_session.GetSeams().prompts.ChooseFolder(u"Select a directory location:"_s);
    if (folder.isEmpty())
        return;
    FolderDefault& chosen = m_folders.at(static_cast<size_t>(row));
    chosen = chosenFolder(chosen, folder);
    showRow(row);
}

bool FolderSettings::apply() {
    Apply_Filepaths(m_session, m_folders);
    return true;
}
