#include "classes/screens/grade_delegate.h"

#include "classes/pupil_sheet_model.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

GradeDelegate::GradeDelegate(Store store, QObject* parent)
    : QStyledItemDelegate(parent), m_store(std::move(store)) {}

QWidget* GradeDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                     const QModelIndex& index) const {
    const auto* model = static_cast<const PupilSheetModel*>(index.model());
    const dao::RecordsetField field = model->sheet().records().Fields(index.column());
    m_editor = new GradeEditor(field.Type(), field.Size(), parent);
    m_editor->setObjectName(u"GradeEditor"_s);
    m_editor->setAccessibleName(model->headerData(index.column(), Qt::Horizontal).toString());
    m_cell = index;
    m_isRefused = false;
    return m_editor;
}

void GradeDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* box = static_cast<GradeEditor*>(editor);
    box->setPlainText(index.data(Qt::EditRole).toString());
    box->selectAll();
}

void GradeDelegate::setModelData(QWidget* editor, QAbstractItemModel*,
                                 const QModelIndex& index) const {
    m_isRefused = !m_store(index, static_cast<GradeEditor*>(editor)->toPlainText());
}

void GradeDelegate::destroyEditor(QWidget* editor, const QModelIndex& index) const {
    if (editor == m_editor)
        m_editor.clear();
    QStyledItemDelegate::destroyEditor(editor, index);
}

bool GradeDelegate::eventFilter(QObject* watched, QEvent* event) {
    auto* editor = qobject_cast<GradeEditor*>(watched);
    if (editor && event->type() == QEvent::FocusOut &&
        static_cast<QFocusEvent*>(event)->reason() == Qt::ActiveWindowFocusReason) {
        emit commitData(editor);
        if (m_isRefused)
            return false; // it has the keyboard again when the window has
    }
    if (editor && event->type() == QEvent::KeyPress) {
        auto& key = *static_cast<QKeyEvent*>(event);
        if (editor->leadsOut(key)) {
            emit keyLeadsOut(key);
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}
