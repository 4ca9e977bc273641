// Twenty post-it notes shown, beside as many frameless text edits with the same texts.

#include "core/session.h"
#include "figures.h"
#include "organiser/screens/post_it_window.h"
#include "quiet_session.h"
#include "richtext/rtf_writer.h"
#include "sample_year.h"

#include <QApplication>
#include <QTextDocument>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr int noteCount = 20;
constexpr int noteSide = 208;

QString noteHtml(int note) {
    return u"<p><b>Note %1</b></p><p>Ring the <i>exams office</i> about rooms, order more squared "
           "paper, and take the mark book to the meeting on Thursday.</p>"_s.arg(note);
}

void drawNotes() {
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

class PostItsShown : public Work {
public:
    explicit PostItsShown(const QString& folder) : m_quiet(folder) {
        const QString path = folder + u"/notes.mdb"_s;
        createSampleYear(path);
        Session& session = m_quiet.session();
        session.CurrentDB = session.Engine().OpenDatabase(path);
        for (int note = 0; note < noteCount; ++note) {
            QTextDocument text;
            text.setHtml(noteHtml(note));
            addPostIt(session.CurrentDB, {.memo = richtext::writeDocument(text)});
        }
    }
    void run() override {
        for (const PostIt& note : readPostIts(m_quiet.session().CurrentDB)) {
            m_windows.push_back(std::make_unique<PostItWindow>(m_quiet.session(), note));
            m_windows.back()->show();
        }
        drawNotes();
    }
    qint64 finish() override {
        const auto count = static_cast<qint64>(m_windows.size());
        m_windows.clear();
        return count;
    }

private:
    QuietSession m_quiet;
    std::vector<std::unique_ptr<QWidget>> m_windows;
};

class FramelessEdits : public Work {
public:
    void run() override {
        for (int note = 0; note < noteCount; ++note) {
            m_edits.push_back(std::make_unique<QTextEdit>());
            m_edits.back()->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
            m_edits.back()->setFixedSize(noteSide, noteSide);
            m_edits.back()->setHtml(noteHtml(note));
            m_edits.back()->show();
        }
        drawNotes();
    }
    qint64 finish() override {
        const auto count = static_cast<qint64>(m_edits.size());
        m_edits.clear();
        return count;
    }

private:
    std::vector<std::unique_ptr<QTextEdit>> m_edits;
};

} // namespace

std::vector<Figure> postItFigures(const QString& folder) {
    constexpr double bound = 1.5;
    constexpr int rounds = 20;
    std::vector<Figure> figures;
    figures.push_back({u"20 post-its shown"_s, bound, rounds,
                       std::make_unique<PostItsShown>(folder + u"/post_its"_s),
                       std::make_unique<FramelessEdits>()});
    return figures;
}
