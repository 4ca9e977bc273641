#include "controls/format_tools.h"

#include "controls/box_objects.h"
#include "controls/colours.h"
#include "controls/edit_menu.h"
#include "controls/icons.h"
#include "controls/insert_object_menu.h"
#include "controls/layout_toolbar.h"
#include "controls/rich_text_box.h"
#include "controls/room_in_box.h"
#include "core/prompts.h"
#include "core/session.h"
#include "richtext/highlight.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QPixmap>

using namespace Qt::StringLiterals;

namespace {

/// The commands in the order of the toolbar.
enum Command { Bold, Italic, Underline, FontSize, Superscript, Subscript, Bullets, CommandCount };
const QString commandTips = u"Bold|Italic|Underline|Font Size|Superscript|Subscript|Bullets"_s;
const QString commandIcons = u"bold|italic|underline|size|superscript|subscript|bullets"_s;

const QList<int> usualSizes{8, 9, 10, 11, 12, 14, 16, 18, 20, 24, 28, 36};

struct NamedColour {
    QString name;
    QColor colour; ///< invalid: automatic
};

const NamedColour textColours[] = {
    {u"Default"_s, {}},
    {u"Red"_s, QColor(255, 0, 0)},
    {u"Blue"_s, QColor(0, 0, 255)},
    {u"Yellow"_s, QColor(255, 255, 0)},
    {u"Green"_s, QColor(0, 128, 0)},
    {u"Pink"_s, QColor(255, 0, 255)},
};

/// Light ones, on which black text reads.
const NamedColour highlights[] = {
    {u"None"_s, {}},
    {u"Yellow"_s, QColor(255, 255, 0)},
    {u"Green"_s, QColor(128, 255, 128)},
    {u"Blue"_s, QColor(128, 224, 255)},
    {u"Pink"_s, QColor(255, 176, 224)},
    {u"Orange"_s, QColor(255, 200, 96)},
};

QIcon swatch(const QColor& colour) {
    if (!colour.isValid())
        return {};
    QPixmap square(16, 16);
    square.fill(colour);
    return square;
}

/// Fills a menu with an exclusive entry a colour, which calls `choose` with it, and "Other...".
template<typename Choose>
QAction* addColours(QMenu& menu, const auto& colours, Choose choose) {
    auto* group = new QActionGroup(&menu);
    group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (const NamedColour& entry : colours) {
        QAction* action = menu.addAction(swatch(entry.colour), entry.name);
        action->setCheckable(true);
        action->setData(entry.colour);
        group->addAction(action);
        QObject::connect(action, &QAction::triggered, &menu,
                         [choose, colour = entry.colour] { choose(colour); });
    }
    return menu.addAction(u"Other..."_s);
}

/// Ticks the entry of the colour; none where there is no such entry, or no one colour.
void tickColour(const QMenu& menu, const std::optional<QColor>& colour) {
    for (QAction* action : menu.actions()) {
        if (action->isCheckable())
            action->setChecked(colour && action->data().value<QColor>() == *colour);
    }
}

} // namespace

FormatTools::FormatTools(Session& session, const QString& layout, QWidget& window,
                         const QList<int>& sizes)
    : QObject(&window)
    , m_session(session)
    , m_sizes(sizes.isEmpty() ? usualSizes : sizes)
    , m_toolbar(new LayoutToolbar(u"Format_Cks"_s, layout, commandTips, commandIcons, &window))
    , m_colourToolbar(new LayoutToolbar(u"Colour_Cks"_s, u"BB"_s, u"Font Colour|Highlighter"_s,
                                        u"colour|highlighter"_s, &window))
    , m_editMenu(new EditMenu(m_focused, &window))
    , m_insertMenu(new InsertObjectMenu(session, m_focused, &window)) {
    makeCommands(window);
    makeSizeMenu(window);
    makeColourMenus(window);
    makeFormatMenu(window);
    m_editMenu->addMenu(m_formatMenu);
    m_editMenu->addMenu(m_insertMenu);
    connect(&m_focused, &FocusedBox::changed, this, &FormatTools::followCaret);
    followCaret();
}

void FormatTools::serve(RichTextBox& box) {
    m_focused.add(box);
    connect(&box, &RichTextBox::menuWanted, m_editMenu,
            [this](const QPoint& place) { m_editMenu->popup(place); });
    connect(&box, &RichTextBox::objectActivated, this,
            [this, &box] { openObjectOfBox(m_session, box); });
    // Once the paste is over: where something was dropped, it is being moved still.
    connect(
        &box, &RichTextBox::tooMuchPasted, &box,
        [this, &box](const QString& rtf) {
            offerSmallerPictures(m_session.GetSeams().prompts, box, rtf);
        },
        Qt::QueuedConnection);
}

void FormatTools::makeCommands(QWidget& window) {
    const QStringList tips = commandTips.split(u'|');
    const QStringList icons = commandIcons.split(u'|');
    m_commands.resize(CommandCount);
    for (qsizetype i = 0; i < CommandCount; ++i) {
        if (i == FontSize) // the action of its menu
            continue;
        const bool hasButton = i < m_toolbar->buttonCount();
        m_commands[i] =
            hasButton ? m_toolbar->button(i) : new QAction(icon(icons[i]), tips[i], &window);
        m_commands[i]->setCheckable(true);
        m_commands[i]->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    }
    const struct {
        Command command;
        QKeySequence keys;
        void (*run)(RichTextBox& box, bool on);
    } commands[] = {
        {Bold, QKeySequence::Bold, [](RichTextBox& box, bool on) { box.setBold(on); }},
        {Italic, QKeySequence::Italic, [](RichTextBox& box, bool on) { box.setItalic(on); }},
        {Underline, QKeySequence::Underline,
         [](RichTextBox& box, bool on) { box.setUnderline(on); }},
        {Superscript, Qt::CTRL | Qt::SHIFT | Qt::Key_Equal,
         [](RichTextBox& box, bool on) {
             box.setCharOffset(on ? CharOffset::Superscript : CharOffset::None);
         }},
        {Subscript, Qt::CTRL | Qt::Key_Equal,
         [](RichTextBox& box, bool on) {
             box.setCharOffset(on ? CharOffset::Subscript : CharOffset::None);
         }},
        {Bullets, Qt::CTRL | Qt::SHIFT | Qt::Key_L,
         [](RichTextBox& box, bool on) { box.setBullet(on); }},
    };
    for (const auto& [command, keys, run] : commands) {
        m_commands[command]->setShortcut(keys);
        window.addAction(m_commands[command]);
        connect(m_commands[command], &QAction::triggered, this, [this, run = run](bool on) {
            if (RichTextBox* box = m_focused.writableBox())
                run(*box, on);
        });
    }
}

void FormatTools::makeSizeMenu(QWidget& window) {
    m_sizeMenu = new QMenu(commandTips.section(u'|', FontSize, FontSize), &window);
    auto* group = new QActionGroup(m_sizeMenu);
    group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (const int size : m_sizes) {
        QAction* action = m_sizeMenu->addAction(QString::number(size));
        action->setCheckable(true);
        action->setData(size);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, size] {
            if (RichTextBox* box = m_focused.writableBox())
                box->setFontSize(size);
        });
    }
    if (m_toolbar->buttonCount() > FontSize)
        m_toolbar->setMenu(FontSize, m_sizeMenu);
    else
        m_sizeMenu->setIcon(icon(commandIcons.section(u'|', FontSize, FontSize)));
    m_commands[FontSize] = m_sizeMenu->menuAction();
}

void FormatTools::makeColourMenus(QWidget& window) {
    m_colourMenu = new QMenu(u"Font Colour"_s, &window);
    const QAction* otherColour =
        addColours(*m_colourMenu, textColours, [this](const QColor& colour) { setColour(colour); });
    connect(otherColour, &QAction::triggered, this, &FormatTools::chooseColour);

    m_highlightMenu = new QMenu(u"Highlighter"_s, &window);
    const QAction* otherHighlight = addColours(*m_highlightMenu, highlights,
                                               [this](const QColor& colour) { highlight(colour); });
    connect(otherHighlight, &QAction::triggered, this, &FormatTools::chooseHighlight);
    connect(m_highlightMenu, &QMenu::aboutToShow, this, &FormatTools::tickHighlight);

    m_colourToolbar->setMenu(0, m_colourMenu);
    m_colourToolbar->setMenu(1, m_highlightMenu);
}

void FormatTools::makeFormatMenu(QWidget& window) {
    m_formatMenu = new QMenu(u"Format"_s, &window);
    for (QAction* command : std::as_const(m_commands))
        m_formatMenu->addAction(command);
    m_formatMenu->addSeparator();
    m_formatMenu->addAction(icon(u"font"_s), u"Font..."_s, this, &FormatTools::chooseFont);
    for (qsizetype i = 0; i < m_colourToolbar->buttonCount(); ++i)
        m_formatMenu->addAction(m_colourToolbar->button(i));
}

void FormatTools::chooseFont() {
    RichTextBox* box = m_focused.writableBox();
    if (!box)
        return;
    const SelectionFormat look = box->selectionFormat();
    const QColor colour = look.colour.value_or(QColor());
    FontRecord font;
    font.name = look.fontName.value_or(font.name);
    font.size = qRound(look.fontSize.value_or(font.size));
    font.bold = look.bold.value_or(false);
    font.italic = look.italic.value_or(false);
    font.underline = look.underline.value_or(false);
    font.colour = colour.isValid() ? fromColour(colour) : 0;
    if (const auto chosen = m_session.GetSeams().prompts.ChooseFont(font))
        box->setSelectionFont(*chosen);
}

void FormatTools::setColour(const QColor& colour) {
    if (RichTextBox* box = m_focused.writableBox())
        box->setColour(colour);
}

void FormatTools::chooseColour() {
    RichTextBox* box = m_focused.writableBox();
    if (!box)
        return;
    const QColor present = box->selectionFormat().colour.value_or(QColor());
    const qint32 proposal = present.isValid() ? fromColour(present) : 0;
    if (const auto chosen = m_session.GetSeams().prompts.ChooseColour(proposal))
        setColour(toColour(*chosen));
}

void FormatTools::highlight(const QColor& colour) {
    if (RichTextBox* box = m_focused.writableBox())
        richtext::ApplyHighlight(box->textCursor(), colour);
}

void FormatTools::chooseHighlight() {
    const RichTextBox* box = m_focused.writableBox();
    if (!box || box->selectionLength() == 0)
        return;
    const QColor present = richtext::GetHighlightColour(box->selectedRtf()).value_or(Qt::yellow);
    if (const auto chosen = m_session.GetSeams().prompts.ChooseColour(fromColour(present)))
        highlight(toColour(*chosen));
}

void FormatTools::tickHighlight() {
    const RichTextBox* box = m_focused.box();
    const bool hasSelection = box && box->selectionLength() > 0;
    const std::optional<QColor> colour =
        hasSelection ? richtext::GetHighlightColour(box->selectedRtf()) : std::nullopt;
    tickColour(*m_highlightMenu, colour);
    for (QAction* action : m_highlightMenu->actions())
        action->setEnabled(hasSelection);
}

void FormatTools::followCaret() {
    const RichTextBox* box = m_focused.writableBox();
    for (QAction* command : std::as_const(m_commands))
        command->setEnabled(box);
    for (qsizetype i = 0; i < m_colourToolbar->buttonCount(); ++i)
        m_colourToolbar->button(i)->setEnabled(box);
    m_formatMenu->setEnabled(box);
    m_insertMenu->setEnabled(box);
    const SelectionFormat look = box ? box->selectionFormat() : SelectionFormat();
    m_commands[Bold]->setChecked(look.bold == true);
    m_commands[Italic]->setChecked(look.italic == true);
    m_commands[Underline]->setChecked(look.underline == true);
    m_commands[Superscript]->setChecked(look.offset == CharOffset::Superscript);
    m_commands[Subscript]->setChecked(look.offset == CharOffset::Subscript);
    m_commands[Bullets]->setChecked(look.bullet == true);
    for (QAction* size : m_sizeMenu->actions())
        size->setChecked(look.fontSize == size->data().toDouble());
    tickColour(*m_colourMenu, look.colour);
}
