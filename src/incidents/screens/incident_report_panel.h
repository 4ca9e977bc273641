#pragma once

#include "incidents/incident_rows.h"
#include "incidents/report_document.h"
#include "store/row_binding.h"

#include <QWidget>

#include <array>
#include <memory>
#include <vector>

class FormatTools;
class LayoutToolbar;
class QLineEdit;
class QTabWidget;
class RichTextBox;
class Session;
class TitleStrip;

/// One report: four pages of rich text and a page of details. In a text "#" types the forename of
/// the pupil. An emptied box of the details keeps what its field had.
class IncidentReportPanel : public QWidget {
    Q_OBJECT

public:
    /// `window`: in which it stands.
    IncidentReportPanel(Session& session, const QWidget& window);

    /// Shows a report on a pupil, the current row of a recordset. What was shown has to be written
    /// before. Raises what reading raises.
    void show(const dao::Recordset& report, const IncidentPupil& pupil);
    /// With false nothing is shown, and nothing can be written; what was not kept is given up.
    void EnableControlsForEditing(bool flag);
    /// Puts the keyboard where the report is written.
    void enter();
    /// A new report begins on the first page.
    void enterFirstPage();

    /// What stands in the boxes, whether it is kept or not.
    ReportTexts texts(const QString& dateFormat) const;

    bool save() { return m_binding.flush(); }
    Leaving leave() { return m_binding.leave(); }
    FormatTools& tools() const { return *m_tools; }

signals:
    void edited();
    void exportWanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static constexpr size_t TextCount = 4;

    QWidget* makeText(size_t number);
    QWidget* makeDetails();

    FormatTools* m_tools;
    LayoutToolbar* m_exportTool;
    TitleStrip* m_strip;
    QTabWidget* m_tabs;
    std::array<RichTextBox*, TextCount> m_texts{};
    QList<QLineEdit*> m_details; ///< tutor, title, addressee, copy to
    std::vector<std::unique_ptr<BoundBox>> m_bound;
    RowBinding m_binding;
    IncidentPupil m_pupil;
};
