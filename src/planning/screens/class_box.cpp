#include "planning/screens/class_box.h"

#include "controls/colours.h"
#include "controls/wheel_guard.h"

#include <QApplication>
#include <QCompleter>
#include <QLineEdit>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

/// The size of the fields "Class1", "Class2", ...
constexpr int LongestClass = 55;

} // namespace

ClassBox::ClassBox(int period, const QStringList& codes, QWidget* parent) : QComboBox(parent) {
    setObjectName(u"text2(%1)"_s.arg(period - 1));
    setAccessibleName(u"Class, period %1"_s.arg(period));
    makeEditable();
    setInsertPolicy(NoInsert);
    setFocusPolicy(Qt::StrongFocus);
    ignoreWheel(*this);
    setCodes(codes);
    lineEdit()->setMaxLength(LongestClass);
    lineEdit()->setAccessibleName(accessibleName());
    connect(this, &QComboBox::editTextChanged, this, [this] {
        m_isChanged = true;
        emit edited();
    });
}

/// Does what setEditable does, without the list and the completer that it makes at once: a sheet
/// has a box a period, and is to stand at once.
void ClassBox::makeEditable() {
    static auto* const none = new QCompleter(qApp);
    auto* edit = new QLineEdit(this);
    edit->setCompleter(none);
    setLineEdit(edit);
    setCompleter(nullptr);
}

void ClassBox::setCodes(const QStringList& codes) {
    const QSignalBlocker quiet(this);
    const QString text = currentText();
    clear();
    addItems(codes);
    setCurrentIndex(findText(text));
    setEditText(text);
}

void ClassBox::show(const QString& text) {
    const QSignalBlocker quiet(this);
    setCurrentIndex(findText(text));
    setEditText(text);
    lineEdit()->setCursorPosition(0);
    m_isChanged = false;
}

void ClassBox::setPaper(const QColor& colour) {
    setBackground(this, colour);
    setBackground(lineEdit(), colour);
}

void ClassBox::focusInEvent(QFocusEvent* event) {
    QComboBox::focusInEvent(event);
    emit entered();
}
