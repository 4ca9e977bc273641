// A page of the calendar of events shown in its window, beside the same texts as HTML in as many
// plain text edits of the same size.

#include "calendar/event_rows.h"
#include "calendar/screens/events_window.h"
#include "controls/rich_text_box.h"
#include "core/session.h"
#include "figures.h"
#include "quiet_session.h"
#include "richtext/rtf_writer.h"
#include "sample_year.h"
#include "store/schema.h"

#include <QApplication>
#include <QScrollArea>
#include <QTextDocument>
#include <QTextEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int fullDays = 10;
constexpr QSize windowSize(720, 600);
/// Of the sample's year, as the empty month between two pages is.
const QDate fullMonth(2026, 9, 1);
const QDate emptyMonth(2026, 10, 1);

/// An event of about one kilobyte as RTF, with words in bold and in colour.
QString eventHtml(int day) {
    QString html;
    for (int line = 0; line < 4; ++line)
        html += u"<p><b>Trip %1.%2</b> Coach at <i>8:%3</i> from the gate, back by "
                "<span style='color:#ff0000'>four o'clock</span>; packed lunch, coat, forms to "
                "the office the day before, list of pupils with the nurse.</p>"_s.arg(day)
                    .arg(line)
                    .arg(10 + day);
    return html;
}

QString rtfOf(const QString& html) {
    QTextDocument document;
    document.setHtml(html);
    return richtext::writeDocument(document);
}

/// Lets everything be laid out and painted that has changed.
void drawChanges() {
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

class MonthShown : public Work {
public:
    explicit MonthShown(const QString& folder) : m_quiet(folder) {
        const QString path = folder + u"/events.mdb"_s;
        createSampleYear(path);
        Session& session = m_quiet.session();
        session.CurrentDB = session.Engine().OpenDatabase(path);
        fillMonth(session.CurrentDB);
        m_window = std::make_unique<EventsWindow>(session, EventsWindow::PostToSheet());
        m_window->resize(windowSize);
        m_window->show();
        m_window->SelectDate(emptyMonth);
        drawChanges();
        m_boxes = m_window->findChildren<RichTextBox*>();
    }
    /// What the boxes are seen through.
    QSize paneSize() const { return m_window->findChild<QScrollArea*>()->size(); }
    int boxHeight() const { return m_boxes.first()->height(); }
    void prepare() override {
        m_window->SelectDate(emptyMonth);
        drawChanges();
    }
    void run() override {
        m_window->SelectDate(fullMonth);
        drawChanges();
    }
    qint64 finish() override {
        qint64 count = 0;
        for (const RichTextBox* box : m_boxes)
            count += box->document()->characterCount();
        return count;
    }

private:
    static void fillMonth(const dao::Database& year) {
        dao::Recordset month =
            openEventMonth(year, {fullMonth.year(), fullMonth.month()}, calendarYear(year));
        month.Edit();
        for (int day = 1; day <= fullDays; ++day)
            month.SetCollect(dayField(day), rtfOf(eventHtml(day)));
        month.Update();
    }

    QuietSession m_quiet;
    std::unique_ptr<EventsWindow> m_window;
    QList<RichTextBox*> m_boxes;
};

class HtmlMonth : public Work {
public:
    HtmlMonth(QSize paneSize, int boxHeight) {
        constexpr int gap = 2;
        auto* content = new QWidget;
        auto* layout = new QVBoxLayout(content);
        layout->setContentsMargins({});
        layout->setSpacing(gap);
        for (int day = 1; day <= DaysOfCalendar; ++day) {
            m_boxes.push_back(new QTextEdit);
            m_boxes.back()->setFixedHeight(boxHeight);
            m_boxes.back()->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
            layout->addWidget(m_boxes.back());
            m_texts += day <= fullDays ? eventHtml(day) : QString();
        }
        m_pane.setWidget(content);
        m_pane.setWidgetResizable(true);
        m_pane.resize(paneSize);
        m_pane.show();
        drawChanges();
    }
    void prepare() override { show(QStringList(DaysOfCalendar)); }
    void run() override { show(m_texts); }
    qint64 finish() override {
        qint64 count = 0;
        for (const QTextEdit* box : m_boxes)
            count += box->document()->characterCount();
        return count;
    }

private:
    void show(const QStringList& texts) {
        for (size_t i = 0; i < m_boxes.size(); ++i)
            m_boxes[i]->setHtml(texts.at(static_cast<qsizetype>(i)));
        drawChanges();
    }

    QScrollArea m_pane;
    std::vector<QTextEdit*> m_boxes;
    QStringList m_texts;
};

} // namespace

std::vector<Figure> eventFigures(const QString& folder) {
    constexpr int rounds = 30;
    constexpr double monthBound = 1.3;
    auto shown = std::make_unique<MonthShown>(folder + u"/events"_s);
    auto floor = std::make_unique<HtmlMonth>(shown->paneSize(), shown->boxHeight());
    std::vector<Figure> figures;
    figures.push_back(
        {u"month page shown"_s, monthBound, rounds, std::move(shown), std::move(floor)});
    return figures;
}
