#include "settings/screens/view_page.h"

#include "controls/colour_button.h"
#include "controls/colours.h"
#include "controls/wheel_guard.h"
#include "core/prompts.h"
#include "core/session.h"
#include "settings/screens/setting_controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QComboBox* choiceBox(const QString& objectName, const QStringList& choices) {
    auto* box = new QComboBox;
    box->setObjectName(objectName);
    box->addItems(choices);
    ignoreWheel(*box);
    return box;
}

} // namespace

ViewSettings::ViewSettings(Session& session) : m_session(session), m_tabs(new QTabWidget) {
    m_tabs->setObjectName(u"ViewTabs"_s);
    m_tabs->addTab(makeWindowTab(), u"Main Window:"_s);
    m_tabs->addTab(makePostItTab(), u"Post-it Notes:"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_tabs);
}

QWidget* ViewSettings::makeWindowTab() {
    Prompts& prompts = m_session.GetSeams().prompts;
    m_toolbar = choiceBox(u"CboDock"_s, {u"Left"_s, u"Right"_s, u"Top"_s, u"Bottom"_s});
    m_fadeStyle = choiceBox(u"CboFade"_s, {u"Diagonal"_s, u"Horizontal"_s, u"Vertical"_s});
    m_fadeStart = new ColourButton(u"FadeStart"_s, u"&Start Colour..."_s, prompts);
    m_fadeEnd = new ColourButton(u"FadeEnd"_s, u"&End Colour..."_s, prompts);
    connect(m_fadeEnd, &ColourButton::chosen, this, [this] { m_isEndChosen = true; });
    m_flat = new QCheckBox(u"Paint with&out gradients"_s);
    m_flat->setObjectName(u"Check8"_s);
    auto* tab = new QWidget;
    auto* layout = new QFormLayout(tab);
    layout->addRow(explanation(u"The background of the main window fades from one colour to "
                               "another. The toolbar stands at the side that you choose."_s));
    layout->addRow(u"&Toolbar:"_s, m_toolbar);
    layout->addRow(u"Fade &direction:"_s, m_fadeStyle);
    layout->addRow(m_fadeStart);
    layout->addRow(m_fadeEnd);
    layout->addRow(m_flat);
    return tab;
}

QWidget* ViewSettings::makePostItTab() {
    Prompts& prompts = m_session.GetSeams().prompts;
    m_loads = new QCheckBox(u"&Show all post-it notes when a database opens"_s);
    m_loads->setObjectName(u"CkPostits"_s);
    m_caption = new ColourButton(u"PostitCapCol"_s, u"&Title Colour..."_s, prompts);
    m_paper = new ColourButton(u"PostitCol"_s, u"&Main Colour..."_s, prompts);
    m_font = new FontSample(u"lbSamp"_s, u"Post-it note"_s, prompts);
    auto* tab = new QWidget;
    auto* layout = new QVBoxLayout(tab);
    layout->addWidget(explanation(
        u"Notes that are on the screen take on a new look when they are shown again."_s));
    layout->addWidget(m_loads);
    layout->addWidget(m_caption, 0, Qt::AlignLeft);
    layout->addWidget(m_paper, 0, Qt::AlignLeft);
    layout->addWidget(m_font);
    layout->addStretch();
    return tab;
}

void ViewSettings::showPostIts() {
    m_tabs->setCurrentIndex(1);
}

void ViewSettings::acquire() {
    const ViewValues page = readView(m_session.GetSettings());
    m_toolbar->setCurrentIndex(static_cast<int>(page.toolbar) - 1);
    m_fadeStyle->setCurrentIndex(static_cast<int>(page.fadeStyle));
    m_fadeStart->setColour(page.fadeStart);
    m_isEndChosen = page.fadeEnd.has_value();
    m_fadeEnd->setColour(page.fadeEnd.value_or(fromColour(palette().color(QPalette::Dark))));
    m_flat->setChecked(page.disablesGradients);
    m_loads->setChecked(page.loadsPostIts);
    m_caption->setColour(page.postItCaption);
    m_paper->setColour(page.postItColour);
    m_font->setSample(page.postItFont);
}

bool ViewSettings::apply() {
    ViewValues page{.toolbar = static_cast<ToolbarSide>(m_toolbar->currentIndex() + 1),
                    .fadeStart = m_fadeStart->colour(),
                    .fadeEnd = std::nullopt,
                    .fadeStyle = static_cast<FadeDirection>(m_fadeStyle->currentIndex()),
                    .disablesGradients = m_flat->isChecked(),
                    .loadsPostIts = m_loads->isChecked(),
                    .postItCaption = m_caption->colour(),
                    .postItColour = m_paper->colour(),
                    .postItFont = m_font->font()};
    if (m_isEndChosen)
        page.fadeEnd = m_fadeEnd->colour();
    Apply_View(m_session, page);
    return true;
}
