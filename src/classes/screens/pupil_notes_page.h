#pragma once

#include "classes/screens/class_view_page.h"
#include "controls/bound_rich_text.h"
#include "controls/kept_writing.h"

#include <memory>

class FormatTools;
class QListWidget;
class QToolButton;

/// "Pupil Notes": rich text on each pupil, under headings of the teacher's own. What is typed is on
/// disk at the latest two seconds after the first key that is not, and whenever the pupil or the
/// category is left.
class PupilNotesPage : public ClassViewPage {
    Q_OBJECT

public:
    PupilNotesPage(Session& session, ClassDesk& desk);

    void showRecords() override;
    void showPupil(int row) override;
    bool leave() override;
    void exportRecords() override;

private:
    QWidget* makeCategories();
    void addNotesCategory();
    void deleteNotesCategory();
    void chooseCategory();
    void fillCategories(const QString& select);
    void bindNote();
    void close();
    QString category() const;
    QStringList tickedCategories() const;

    FormatTools* m_tools;
    QListWidget* m_categories;
    QToolButton* m_delete = nullptr;
    RichTextBox* m_note;
    BoundRichText m_bound;
    std::unique_ptr<RowBinding> m_binding; ///< of the category that shows; null for none
    dao::Recordset m_pupil;
    QString m_shown;       ///< the category that shows
    KeptWriting m_writing; ///< last
};
