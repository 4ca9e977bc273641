// Writing in a rich text box: a key in the longest document that a lesson can have, until the
// letter can be seen, with the toolbar that follows the caret and the spelling marks.

#include "controls/format_tools.h"
#include "controls/layout_toolbar.h"
#include "controls/rich_text_box.h"
#include "controls/spelling_marks.h"
#include "figures.h"
#include "quiet_session.h"

#include <QApplication>
#include <QKeyEvent>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestLesson = 65535;

/// Paragraphs of so many sentences, some words of them misspelled.
QString longText(int paragraph) {
    const QString sentence =
        u"Starter: recap fractions, then groups of four work throu the worksheet. "_s;
    QString text;
    for (int count = 1; text.size() < longestLesson; ++count)
        text += count % paragraph == 0 ? sentence + u'\n' : sentence;
    return text.left(longestLesson);
}

/// Types a letter in the middle and takes it back, so that each run finds the same document.
class KeyPress : public Work {
public:
    KeyPress(const QString& folder, const QString& text) : m_session(folder) {
        auto* layout = new QVBoxLayout(&m_window);
        auto* tools = new FormatTools(m_session.session(), u"BBBB|BB|B"_s, m_window);
        layout->addWidget(tools->toolbar());
        layout->addWidget(m_box);
        tools->serve(*m_box);
        m_window.resize(700, 500);
        m_window.show();
        m_box->setFocus();
        m_box->setRtf(text);
        m_box->select(longestLesson / 2, 0);
        m_box->spelling().check();
        QApplication::processEvents();
    }

    void run() override {
        press(Qt::Key_A, u"a"_s);
        m_window.repaint();
    }
    qint64 finish() override {
        press(Qt::Key_Backspace, {});
        QApplication::processEvents();
        return m_box->document()->characterCount();
    }

private:
    void press(Qt::Key key, const QString& text) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(m_box, &event);
    }

    QuietSession m_session;
    QWidget m_window;
    RichTextBox* m_box = new RichTextBox(u"Lesson"_s);
};

} // namespace

std::vector<Figure> writingFigures(const QString& folder) {
    constexpr int rounds = 100;
    constexpr int usualParagraph = 6;
    constexpr int endlessParagraph = 10000;
    const QString place = folder + u"/writing"_s;
    std::vector<Figure> figures;
    figures.push_back({u"key press to painted"_s, 1, rounds,
                       std::make_unique<KeyPress>(place, longText(usualParagraph)), nullptr});
    figures.push_back({u"key press, one paragraph"_s, 1, rounds,
                       std::make_unique<KeyPress>(place, longText(endlessParagraph)), nullptr});
    return figures;
}
