#include "classes/screens/pupil_notes_page.h"

#include "classes/class_export_commands.h"
#include "classes/pupil_notes.h"
#include "controls/format_tools.h"
#include "controls/layout_toolbar.h"
#include "controls/tool_button.h"
#include "core/session.h"
#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/table_names.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QToolButton>

#include <numeric>

using namespace Qt::StringLiterals;

namespace {

/// Every size from 8 points on.
QList<int> noteSizes() {
    QList<int> sizes(12);
    std::iota(sizes.begin(), sizes.end(), 8);
    return sizes;
}

} // namespace

PupilNotesPage::PupilNotesPage(Session& session, ClassDesk& desk)
    : ClassViewPage(session, desk)
    , m_tools(new FormatTools(session, u"BBBB|BB|B"_s, *this, noteSizes()))
    , m_categories(new QListWidget)
    , m_note(new RichTextBox(u"Note"_s))
    , m_bound(*m_note)
    , m_writing(*this, session.GetSeams(),
                {.what = u"The note on the pupil"_s,
                 .save = [this] { return !m_binding || m_binding->flush(); },
                 .leave = [this] { return m_binding ? m_binding->leave() : Leaving::Done; }}) {
    m_note->setObjectName(u"RTFnotes"_s);
    setFocusProxy(m_note);
    m_tools->serve(*m_note);
    auto* body = new QHBoxLayout;
    body->addWidget(makeCategories());
    body->addWidget(m_note, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(2);
    auto* bars = new QHBoxLayout;
    bars->addWidget(m_tools->toolbar());
    bars->addWidget(m_tools->colourToolbar());
    bars->addStretch();
    layout->addLayout(bars);
    layout->addLayout(body, 1);
    connect(m_note, &RichTextBox::edited, this, [this] { m_writing.typed(); });
}

QWidget* PupilNotesPage::makeCategories() {
    auto* panel = new QWidget;
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins({});
    auto* buttons = new QHBoxLayout;
    const auto add = [&](const QString& name, const QString& iconName, const QString& tip,
                         void (PupilNotesPage::*act)()) {
        QToolButton* button = makeToolButton(name, iconName, tip);
        buttons->addWidget(button);
        connect(button, &QToolButton::clicked, this, act);
        return button;
    };
    auto* label = new QLabel(u"Categories"_s);
    label->setBuddy(m_categories);
    buttons->addWidget(label, 1);
    add(u"cmdAddNotes"_s, u"new"_s, u"Add Notes Category."_s, &PupilNotesPage::addNotesCategory);
    m_delete = add(u"cmdDeleteNotes"_s, u"delete"_s, u"Delete Notes Category."_s,
                   &PupilNotesPage::deleteNotesCategory);
    m_categories->setObjectName(u"CL5"_s);
    m_categories->setAccessibleName(u"Notes categories"_s);
    m_categories->setToolTip(u"Tick the categories that are to be exported."_s);
    constexpr int width = 22; // characters
    m_categories->setFixedWidth(width * fontMetrics().averageCharWidth());
    layout->addLayout(buttons);
    layout->addWidget(m_categories, 1);
    connect(m_categories, &QListWidget::currentRowChanged, this, &PupilNotesPage::chooseCategory);
    return panel;
}

QString PupilNotesPage::category() const {
    return m_categories->currentItem() ? m_categories->currentItem()->text() : QString();
}

QStringList PupilNotesPage::tickedCategories() const {
    QStringList titles;
    for (int row = 0; row < m_categories->count(); ++row) {
        if (m_categories->item(row)->checkState() == Qt::Checked)
            titles += m_categories->item(row)->text();
    }
    return titles;
}

void PupilNotesPage::showRecords() {
    fillCategories(m_shown);
}

/// The first category is chosen where the one to select is not there. Those ticked stay so.
void PupilNotesPage::fillCategories(const QString& select) {
    const QSignalBlocker blocker(m_categories);
    const QStringList ticked = tickedCategories();
    m_categories->clear();
    for (const QString& title : noteCategories(session().CurrentDB, desk().classCode())) {
        auto* item = new QListWidgetItem(title, m_categories);
        item->setCheckState(ticked.contains(title) ? Qt::Checked : Qt::Unchecked);
    }
    const QList<QListWidgetItem*> found = m_categories->findItems(select, Qt::MatchExactly);
    m_categories->setCurrentItem(found.isEmpty() ? m_categories->item(0) : found.first());
    m_shown = category();
}

void PupilNotesPage::showPupil(int) {
    bindNote();
}

/// The category that is left is written first; where that fails the list goes back to it.
void PupilNotesPage::chooseCategory() {
    if (leave()) {
        m_shown = category();
        bindNote();
        return;
    }
    const QSignalBlocker blocker(m_categories);
    m_categories->setCurrentItem(m_categories->findItems(m_shown, Qt::MatchExactly).value(0));
}

void PupilNotesPage::bindNote() {
    close();
    const std::optional<qint64> pupil = desk().currentPupil();
    const bool isBound = pupil && !m_shown.isEmpty();
    m_delete->setEnabled(!m_shown.isEmpty());
    m_note->setEnabled(isBound);
    m_note->setRtf({});
    if (!isBound)
        return;
    try {
        const QString field = noteField(m_shown);
        m_pupil = session().CurrentDB.OpenRecordset(u"SELECT ID,%1 FROM %2 WHERE ID = %3;"_s.arg(
            dao::writeName(field), dao::writeName(classTable(desk().classCode())),
            QString::number(*pupil)));
        m_binding = std::make_unique<RowBinding>(session().GetSeams().prompts);
        m_binding->bind(field, m_bound);
        m_binding->setData(m_pupil);
        m_binding->load();
    } catch (const dao::EngineError& error) {
        close();
        m_note->setEnabled(false); // what is typed would go nowhere
        tellFailure(session().GetSeams().prompts, BindNotesFailure, error);
    }
}

bool PupilNotesPage::leave() {
    if (!m_writing.leave())
        return false;
    close();
    return true;
}

void PupilNotesPage::exportRecords() {
    NotesTOExcel(session(), desk().classCode(), desk().sheet(), tickedCategories());
}

void PupilNotesPage::close() {
    m_binding.reset();
    m_pupil.Close();
    m_pupil = {};
}

void PupilNotesPage::addNotesCategory() {
    Prompts& prompts = session().GetSeams().prompts;
    const QString title = askNotesCategory(prompts);
    if (title.isEmpty() || !leave())
        return;
    desk().release();
    if (::addNotesCategory(session().CurrentDB, desk().classCode(), title, prompts))
        m_shown = title;
    emit recordsChanged();
}

void PupilNotesPage::deleteNotesCategory() {
    Prompts& prompts = session().GetSeams().prompts;
    const QString title = category();
    if (title.isEmpty() || !askDeleteCategory(title, prompts) || !leave())
        return;
    desk().release();
    ::deleteNotesCategory(session().CurrentDB, desk().classCode(), title, prompts);
    emit recordsChanged();
}
