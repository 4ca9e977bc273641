// Writing in a rich text box: a key in the longest document that a lesson can have, until the
// letter can be seen, with the toolbar that follows the caret and the spelling marks. A text of one
// paragraph is laid out anew as a whole, by the toolkit: it stands beside a bare text edit.

#include "controls/format_tools.h"
#include "controls/layout_toolbar.h"
#include "controls/rich_text_box.h"
#include "controls/spelling_marks.h"
#include "figures.h"
#include "quiet_session.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTextCursor>
#include <QVBoxLayout>

#include <utility>

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
    void run() override {
        press(Qt::Key_A, u"a"_s);
        m_window.repaint();
    }
    qint64 finish() override {
        press(Qt::Key_Backspace, {});
        QApplication::processEvents();
        return m_box->document()->characterCount();
    }

protected:
    void show(QTextEdit& box, const QSize& size) {
        m_box = &box;
        m_window.resize(size);
        m_window.show();
        box.setFocus();
    }
    void goToMiddle() {
        QTextCursor cursor(m_box->document());
        cursor.setPosition(longestLesson / 2);
        m_box->setTextCursor(cursor);
        QApplication::processEvents();
    }
    QWidget m_window;

private:
    void press(Qt::Key key, const QString& text) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(m_box, &event);
    }
    QTextEdit* m_box = nullptr;
};

class RichTextKey : public KeyPress {
public:
    RichTextKey(const QString& folder, const QString& text) : m_session(folder) {
        auto* layout = new QVBoxLayout(&m_window);
        auto* tools = new FormatTools(m_session.session(), u"BBBB|BB|B"_s, m_window);
        layout->addWidget(tools->toolbar());
        layout->addWidget(m_box);
        tools->serve(*m_box);
        show(*m_box, {700, 500});
        m_box->setRtf(text);
        goToMiddle();
        m_box->spelling().check();
        QApplication::processEvents();
    }

    const RichTextBox& box() const { return *m_box; }

private:
    QuietSession m_session;
    RichTextBox* m_box = new RichTextBox(u"Lesson"_s);
};

/// The same text, in the same font, in a bare text edit of the same size.
class BareKey : public KeyPress {
public:
    explicit BareKey(const RichTextBox& box) {
        auto* edit = new QTextEdit;
        auto* layout = new QVBoxLayout(&m_window);
        layout->setContentsMargins({});
        layout->addWidget(edit);
        edit->setDocument(box.document()->clone(edit));
        show(*edit, box.size());
        goToMiddle();
    }
};

} // namespace

std::vector<Figure> writingFigures(const QString& folder) {
    constexpr int rounds = 100;
    constexpr int usualParagraph = 6;
    constexpr int endlessParagraph = 10000;
    const QString place = folder + u"/writing"_s;
    std::vector<Figure> figures;
    figures.push_back({u"key press to painted"_s, 1, rounds,
                       std::make_unique<RichTextKey>(place, longText(usualParagraph)), nullptr});
    auto oneParagraph = std::make_unique<RichTextKey>(place, longText(endlessParagraph));
    auto bare = std::make_unique<BareKey>(oneParagraph->box());
    figures.push_back(
        {u"key press, one paragraph"_s, 1.2, rounds, std::move(oneParagraph), std::move(bare)});
    return figures;
}
