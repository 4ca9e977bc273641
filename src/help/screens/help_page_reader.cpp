#include "help/screens/help_page_reader.h"

#include "help/screens/help_page_view.h"

#include <QAccessibleWidget>
#include <QTextDocument>

#include <algorithm>

namespace {

/// A page as a document that can be read, marked and scrolled. Positions are those of the text.
class HelpPageReader : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit HelpPageReader(HelpPageView& view)
        : QAccessibleWidget(&view, QAccessible::EditableText), m_view(view) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        state.multiLine = true;
        state.selectableText = true;
        return state;
    }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? wholeText() : QAccessibleWidget::text(kind);
    }
    QString text(int start, int end) const override { return wholeText().mid(start, end - start); }
    int characterCount() const override { return static_cast<int>(wholeText().size()); }

    int cursorPosition() const override { return m_view.textCursor().position(); }
    void setCursorPosition(int position) override { select(position, position); }
    int selectionCount() const override { return m_view.textCursor().hasSelection() ? 1 : 0; }
    void selection(int, int* start, int* end) const override {
        *start = m_view.textCursor().selectionStart();
        *end = m_view.textCursor().selectionEnd();
    }
    void addSelection(int start, int end) override { select(start, end); }
    void removeSelection(int) override { setCursorPosition(cursorPosition()); }
    void setSelection(int, int start, int end) override { select(start, end); }
    void scrollToSubstring(int start, int end) override { select(start, end); }

    QRect characterRect(int position) const override {
        const QTextCursor cursor = cursorAt(position);
        const QRect line = m_view.cursorRect(cursor);
        const int width = QFontMetrics(cursor.charFormat().font()).averageCharWidth();
        return {m_view.viewport()->mapToGlobal(line.topLeft()), QSize(width, line.height())};
    }
    int offsetAtPoint(const QPoint& point) const override {
        return m_view.cursorForPosition(m_view.viewport()->mapFromGlobal(point)).position();
    }
    /// The text has no look that means something.
    QString attributes(int, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }

private:
    QString wholeText() const { return m_view.document()->toPlainText(); }
    QTextCursor cursorAt(int position) const {
        QTextCursor cursor(m_view.document());
        cursor.setPosition(
            std::clamp(position, 0, std::max(0, m_view.document()->characterCount() - 1)));
        return cursor;
    }
    void select(int start, int end) {
        QTextCursor cursor = cursorAt(start);
        cursor.setPosition(cursorAt(end).position(), QTextCursor::KeepAnchor);
        m_view.setTextCursor(cursor);
        m_view.ensureCursorVisible();
    }

    HelpPageView& m_view;
};

QAccessibleInterface* makeReader(const QString&, QObject* object) {
    auto* view = qobject_cast<HelpPageView*>(object);
    return view ? new HelpPageReader(*view) : nullptr;
}

} // namespace

void showHelpPagesToAssistiveTools() {
    QAccessible::installFactory(makeReader);
}
