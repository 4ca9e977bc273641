#include "seating/screens/seating_side_panel.h"

#include "classes/screens/photo_view.h"
#include "controls/colour_button.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/settings.h"
#include "seating/seating_settings.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int PanelWidth = 170;

qint32 unitsOf(const Settings& settings, const Setting<qint32>& setting) {
    return std::clamp(settings.get(setting), 0, MostDeskUnits);
}

QPushButton* makePush(const QString& name, const QString& text) {
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    button->setAutoDefault(true);
    return button;
}

} // namespace

SeatingSidePanel::SeatingSidePanel(Session& session)
    : m_session(session), m_pupils(new QListWidget) {
    setFixedWidth(PanelWidth);
    auto* tabs = new QTabWidget;
    tabs->setObjectName(u"Tab1"_s);
    tabs->addTab(makeSettings(), u"Settings"_s);
    tabs->addTab(makePreview(), u"Preview"_s);
    tabs->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_pupils->setObjectName(u"List2"_s);
    m_pupils->setUniformItemSizes(true);
    m_pupils->setAccessibleName(u"Pupils of the plan"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(tabs);
    layout->addWidget(m_pupils, 1);
    // The current item alone says nothing: the list makes one when the keyboard comes to it.
    connect(m_pupils, &QListWidget::itemSelectionChanged, this, [this] {
        const QList<QListWidgetItem*> chosen = m_pupils->selectedItems();
        if (!chosen.isEmpty())
            emit pupilChosen(chosen.first()->data(Qt::UserRole).toLongLong());
    });
    ApplyRegistryData();
}

QWidget* SeatingSidePanel::makeSettings() {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(4, 4, 4, 4);
    const QString captions[] = {u"Pupil &desks..."_s, u"Teache&r's desk..."_s, u"&Classroom..."_s};
    for (size_t i = 0; i < m_colours.size(); ++i) {
        m_colours[i] =
            new ColourButton(u"CPick(%1)"_s.arg(i), captions[i], m_session.GetSeams().prompts);
        layout->addWidget(m_colours[i]);
        connect(m_colours[i], &ColourButton::chosen, this, [this] {
            SaveRegistryData();
            emit lookChanged();
        });
    }
    QPushButton* font = makePush(u"cmdFont"_s, u"Default F&ont..."_s);
    layout->addWidget(makeDimensions());
    layout->addWidget(font);
    connect(font, &QPushButton::clicked, this, &SeatingSidePanel::chooseFont);
    return page;
}

QWidget* SeatingSidePanel::makeDimensions() {
    auto* group = new QGroupBox(u"Desk Dimensions"_s);
    auto* form = new QFormLayout(group);
    form->setContentsMargins(4, 4, 4, 4);
    const QString captions[] = {u"&Width:"_s, u"H&eight:"_s};
    const QString names[] = {u"Width of a desk, in steps of the grid"_s,
                             u"Height of a desk, in steps of the grid"_s};
    for (size_t i = 0; i < m_units.size(); ++i) {
        m_units[i] = new QSpinBox;
        m_units[i]->setObjectName(u"Text1(%1)"_s.arg(i));
        m_units[i]->setAccessibleName(names[i]);
        m_units[i]->setRange(0, MostDeskUnits);
        form->addRow(captions[i], m_units[i]);
    }
    QPushButton* apply = makePush(u"ButtonEx1"_s, u"&Apply"_s);
    QPushButton* save = makePush(u"ButtonEx2"_s, u"&Save as default"_s);
    form->addRow(apply);
    form->addRow(save);
    connect(apply, &QPushButton::clicked, this, &SeatingSidePanel::sizeWanted);
    connect(save, &QPushButton::clicked, this, &SeatingSidePanel::saveSizes);
    return group;
}

QWidget* SeatingSidePanel::makePreview() {
    auto* page = new QWidget;
    m_photo = new PhotoView;
    m_size = new QLabel;
    m_size->setObjectName(u"L3"_s);
    m_size->setAccessibleName(u"Size of the desk"_s);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(m_photo, 0, Qt::AlignHCenter);
    layout->addWidget(m_size, 0, Qt::AlignHCenter);
    layout->addStretch();
    showNobody();
    return page;
}

void SeatingSidePanel::ApplyRegistryData() {
    const Settings& settings = m_session.GetSettings();
    m_colours[DeskColour]->setColour(settings.get(setting::DeskColor));
    m_colours[TeacherColour]->setColour(settings.get(setting::TeacherColor));
    m_colours[ClassroomColour]->setColour(settings.get(setting::ClassroomColor));
    m_font = settings.ReadFontRecord(setting::keyOf(setting::SeatingPlan));
    m_units[0]->setValue(unitsOf(settings, setting::DefaultDeskWidth));
    m_units[1]->setValue(unitsOf(settings, setting::DefaultDeskHeight));
}

void SeatingSidePanel::SaveRegistryData() {
    Settings& settings = m_session.GetSettings();
    settings.set(setting::DeskColor, m_colours[DeskColour]->colour());
    settings.set(setting::TeacherColor, m_colours[TeacherColour]->colour());
    settings.set(setting::ClassroomColor, m_colours[ClassroomColour]->colour());
    settings.WriteFontRecord(setting::keyOf(setting::SeatingPlan), m_font);
}

void SeatingSidePanel::saveSizes() {
    Settings& settings = m_session.GetSettings();
    settings.set(setting::DefaultDeskWidth, m_units[0]->value());
    settings.set(setting::DefaultDeskHeight, m_units[1]->value());
}

void SeatingSidePanel::chooseFont() {
    const std::optional<FontRecord> chosen = m_session.GetSeams().prompts.ChooseFont(m_font);
    if (!chosen)
        return;
    m_font = *chosen;
    SaveRegistryData();
    emit lookChanged();
}

qint32 SeatingSidePanel::colour(Colour which) const {
    return m_colours.at(which)->colour();
}

QSize SeatingSidePanel::twips(qint32 widthUnits, qint32 heightUnits) const {
    return {deskTwips(widthUnits, m_session.TwipsPerPixelX),
            deskTwips(heightUnits, m_session.TwipsPerPixelY)};
}

QSize SeatingSidePanel::deskSize() const {
    return twips(m_units[0]->value(), m_units[1]->value());
}

QSize SeatingSidePanel::defaultDeskSize() const {
    const Settings& settings = m_session.GetSettings();
    return twips(unitsOf(settings, setting::DefaultDeskWidth),
                 unitsOf(settings, setting::DefaultDeskHeight));
}

void SeatingSidePanel::listPupils(const QList<ListedPupil>& pupils) {
    const QSignalBlocker quiet(m_pupils);
    m_pupils->clear();
    for (const ListedPupil& each : pupils) {
        auto* item = new QListWidgetItem(each.entry, m_pupils);
        item->setData(Qt::UserRole, each.id);
    }
}

void SeatingSidePanel::showPupil(const QImage& photo, QSize desk) {
    m_photo->setPhoto(photo);
    m_size->setText(u"%1 %2"_s.arg(desk.width()).arg(desk.height()));
}

void SeatingSidePanel::showNobody() {
    m_photo->clear();
    m_size->clear();
}
