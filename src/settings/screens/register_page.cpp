#include "settings/screens/register_page.h"

#include "core/prompts.h"
#include "core/session.h"
#include "settings/register_key_prompt.h"
#include "settings/screens/setting_controls.h"
#include "settings/settings_pages.h"

#include <QCheckBox>
#include <QListWidget>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

RegisterSettings::RegisterSettings(Session& session)
    : m_session(session)
    , m_keys(new QListWidget)
    , m_remove(new QPushButton(u"&Remove"_s))
    , m_dates(new QLabel)
    , m_picture(new QCheckBox(u"Show the photo &of a pupil beside the register"_s))
    , m_notes(new QCheckBox(u"&Do without lesson notes"_s)) {
    m_keys->setObjectName(u"KeyList"_s);
    m_keys->setAccessibleName(u"Marks of the register"_s);
    m_remove->setObjectName(u"RemoveKey"_s);
    m_dates->setObjectName(u"lb1"_s);
    m_picture->setObjectName(u"CkPicture"_s);
    m_notes->setObjectName(u"CkNotes"_s);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(
        explanation(u"These characters can be typed into a register, beside /, \\ and "
                    "O. Each has a short description."_s));
    layout->addLayout(makeKeys(), 1);
    layout->addLayout(makeDates());
    layout->addWidget(m_picture);
    layout->addWidget(m_notes);
}

QLayout* RegisterSettings::makeKeys() {
    auto* add = new QPushButton(u"&Add..."_s);
    add->setObjectName(u"AddKey"_s);
    connect(add, &QPushButton::clicked, this, [this] {
        const QString row = askRegisterKey(m_session.GetSeams().prompts, rows());
        if (!row.isEmpty())
            m_keys->addItem(row);
    });
    connect(m_remove, &QPushButton::clicked, this, [this] {
        delete m_keys->takeItem(m_keys->currentRow());
        m_keys->setCurrentRow(-1);
        m_remove->setEnabled(false);
    });
    connect(m_keys, &QListWidget::currentRowChanged, this,
            [this](int row) { m_remove->setEnabled(row >= 0); });
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(m_remove);
    buttons->addStretch();
    auto* layout = new QHBoxLayout;
    layout->addWidget(m_keys, 1);
    layout->addLayout(buttons);
    return layout;
}

QLayout* RegisterSettings::makeDates() {
    auto* layout = new QHBoxLayout;
    layout->addWidget(new QLabel(u"Lessons before the current one that are in view:"_s));
    layout->addWidget(m_dates);
    const struct {
        Qt::ArrowType arrow;
        QString name;
        int step;
    } steps[] = {{Qt::UpArrow, u"More lessons before the current one"_s, 1},
                 {Qt::DownArrow, u"Fewer lessons before the current one"_s, -1}};
    for (const auto& step : steps) {
        auto* button = new QToolButton;
        button->setObjectName(step.step > 0 ? u"DatesUp"_s : u"DatesDown"_s);
        button->setArrowType(step.arrow);
        button->setAccessibleName(step.name);
        button->setToolTip(step.name);
        button->setFocusPolicy(Qt::TabFocus);
        button->setAutoRepeat(true);
        connect(button, &QToolButton::clicked, this, [this, by = step.step] {
            m_dates->setNum(steppedPreviousDates(m_dates->text().toInt(), by));
        });
        layout->addWidget(button);
    }
    layout->addStretch();
    return layout;
}

QStringList RegisterSettings::rows() const {
    QStringList rows;
    for (int row = 0; row < m_keys->count(); ++row)
        rows += m_keys->item(row)->text();
    return rows;
}

void RegisterSettings::acquire() {
    const RegisterValues page = readRegister(m_session);
    m_keys->clear();
    m_keys->addItems(page.keys);
    m_remove->setEnabled(false);
    m_dates->setNum(page.previousDates);
    m_picture->setChecked(page.displaysPicture);
    m_notes->setChecked(page.leavesOutNotes);
}

bool RegisterSettings::apply() {
    Apply_Register(m_session.GetSettings(), {.keys = rows(),
                                             .previousDates = m_dates->text().toInt(),
                                             .displaysPicture = m_picture->isChecked(),
                                             .leavesOutNotes = m_notes->isChecked()});
    return true;
}
