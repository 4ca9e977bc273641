#include "incidents/screens/incident_report_panel.h"

#include "controls/bound_rich_text.h"
#include "controls/bound_text.h"
#include "controls/format_tools.h"
#include "controls/layout_toolbar.h"
#include "core/session.h"
#include "incidents/screens/title_strip.h"
#include "office/plain_cell.h"

#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

struct ReportText {
    QString field;
    QString tab;
    QString name; ///< in words
};

const ReportText& reportText(size_t number) {
    static const std::array texts{
        ReportText{u"Incident"_s, u" Incident Report "_s, u"Incident report"_s},
        ReportText{u"Action"_s, u" Action Taken "_s, u"Action taken"_s},
        ReportText{u"Home"_s, u" Contact with Home "_s, u"Contact with home"_s},
        ReportText{u"Further"_s, u" Further Action "_s, u"Further action"_s},
    };
    return texts.at(number);
}

/// A line that keeps what its field had while it is empty.
class BoundUnlessEmpty : public BoundLine {
public:
    using BoundLine::BoundLine;
    bool dataChanged() const override { return BoundLine::dataChanged() && !text().isEmpty(); }
};

} // namespace

IncidentReportPanel::IncidentReportPanel(Session& session, const QWidget& window)
    : m_tools(new FormatTools(session, u"BBBB|BB|B"_s, *this))
    , m_exportTool(new LayoutToolbar(u"Toolbar2"_s, u"B"_s, u"Export to Word"_s, u"export"_s))
    , m_strip(new TitleStrip(window, session.GradientsEnabled))
    , m_tabs(new QTabWidget)
    , m_binding(session.GetSeams().prompts) {
    m_tabs->setObjectName(u"LightTab1"_s);
    for (size_t number = 0; number < TextCount; ++number)
        m_tabs->addTab(makeText(number), reportText(number).tab);
    m_tabs->addTab(makeDetails(), u" Details "_s);
    auto* bars = new QHBoxLayout;
    bars->addWidget(m_tools->toolbar());
    bars->addWidget(m_tools->colourToolbar());
    bars->addWidget(m_exportTool);
    bars->addStretch();
    connect(m_exportTool->button(0), &QAction::triggered, this, &IncidentReportPanel::exportWanted);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(2);
    layout->addWidget(m_strip);
    layout->addLayout(bars);
    layout->addWidget(m_tabs, 1);
    EnableControlsForEditing(false);
}

QWidget* IncidentReportPanel::makeText(size_t number) {
    const ReportText& text = reportText(number);
    auto* box = new RichTextBox(text.name);
    box->setObjectName(u"RT1(%1)"_s.arg(number));
    box->installEventFilter(this);
    m_texts.at(number) = box;
    m_tools->serve(*box);
    m_bound.push_back(std::make_unique<BoundRichText>(*box));
    m_binding.bind(text.field, *m_bound.back());
    connect(box, &RichTextBox::edited, this, &IncidentReportPanel::edited);
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addWidget(new QLabel(u"Press '#' to insert Pupil name"_s));
    layout->addWidget(box, 1);
    return page;
}

QWidget* IncidentReportPanel::makeDetails() {
    const struct {
        QString field;
        QString caption;
        QString name; ///< in words
    } details[] = {
        {u"Tutor"_s, u"Tutor:"_s, u"Tutor"_s},
        {u"Event"_s, u"Incident:"_s, u"Title of the incident"_s},
        {u"SendTo"_s, u"Send to:"_s, u"Send the report to"_s},
        {u"CC"_s, u"CC:"_s, u"Copy to"_s},
    };
    auto* page = new QWidget;
    auto* form = new QFormLayout(page);
    int number = 0;
    for (const auto& each : details) {
        auto* line = new QLineEdit;
        line->setObjectName(u"text2(%1)"_s.arg(number++));
        line->setAccessibleName(each.name);
        m_details += line;
        line->setMaxLength(longestIncidentText(each.field));
        m_bound.push_back(std::make_unique<BoundUnlessEmpty>(*line));
        m_binding.bind(each.field, *m_bound.back());
        form->addRow(each.caption, line);
        connect(line, &QLineEdit::textEdited, this, &IncidentReportPanel::edited);
        if (each.field == u"Event")
            connect(line, &QLineEdit::textEdited, this, [this](const QString& title) {
                if (!title.isEmpty())
                    m_strip->setTitle(title);
            });
    }
    return page;
}

void IncidentReportPanel::show(const dao::Recordset& report, const IncidentPupil& pupil) {
    m_pupil = pupil;
    m_binding.setData(report);
    m_binding.load();
    m_strip->setTitle(m_binding.value(u"Event").toText());
    EnableControlsForEditing(true);
}

void IncidentReportPanel::EnableControlsForEditing(bool flag) {
    if (!flag) { // before the keyboard goes elsewhere, which has everything written
        m_binding.setData({});
        m_binding.load();
        m_strip->setTitle({});
    }
    for (int page = 0; page < m_tabs->count(); ++page)
        m_tabs->widget(page)->setEnabled(flag);
    m_exportTool->button(0)->setEnabled(flag);
}

void IncidentReportPanel::enter() {
    const auto page = static_cast<size_t>(m_tabs->currentIndex());
    if (page < m_texts.size())
        m_texts.at(page)->setFocus();
    else
        m_tabs->currentWidget()->findChild<QLineEdit*>()->setFocus();
}

void IncidentReportPanel::enterFirstPage() {
    m_tabs->setCurrentIndex(0);
    enter();
}

ReportTexts IncidentReportPanel::texts(const QString& dateFormat) const {
    const auto plain = [this](size_t page) { return plainCellText(m_texts.at(page)->rtf()); };
    return {.forename = m_pupil.forename,
            .surname = m_pupil.surname,
            .date = incidentDateText(m_binding.value(u"Date").toText(), dateFormat),
            .tutor = m_details[0]->text(),
            .title = m_details[1]->text(),
            .information = plain(0),
            .actionTaken = plain(1),
            .home = plain(2),
            .furtherAction = plain(3),
            .sendTo = m_details[2]->text(),
            .copyTo = m_details[3]->text()};
}

bool IncidentReportPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->text() == u"#") {
        static_cast<RichTextBox*>(watched)->setSelectedText(insertedForename(m_pupil));
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
