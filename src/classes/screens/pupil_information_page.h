#pragma once

#include "classes/screens/class_view_page.h"
#include "controls/kept_writing.h"
#include "store/row_binding.h"

#include <memory>
#include <vector>

class PhotoBox;
class QFormLayout;
class QLineEdit;
class QPlainTextEdit;

/// "Pupil Information": what is kept of one pupil, beside the list of names. What is typed is on
/// disk at the latest two seconds after the first key that is not, and whenever the pupil is left.
/// Without a pupil the page is disabled.
class PupilInformationPage : public ClassViewPage {
    Q_OBJECT

public:
    PupilInformationPage(Session& session, ClassDesk& desk);

    void showRecords() override;
    void showPupil(int row) override;
    bool leave() override;
    void exportRecords() override;

private:
    QWidget* makeBoxes();
    QLineEdit* addLine(QFormLayout& form, const QString& field, const QString& label);
    QWidget* withMailButton(QLineEdit& email);
    void sendMail();
    void typed();
    void close();

    RowBinding m_binding;
    std::vector<std::unique_ptr<BoundBox>> m_boxes;
    dao::Recordset m_pupil;
    QPlainTextEdit* m_notes;
    PhotoBox* m_photo;
    QLineEdit* m_firstname = nullptr;
    QLineEdit* m_surname = nullptr;
    QLineEdit* m_email = nullptr;
    PupilName m_name;      ///< of the pupil, as the list of names has it
    KeptWriting m_writing; ///< last
};
