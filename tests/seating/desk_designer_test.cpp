// The designer of desks, fed with presses, moves and keys: states, events in their order, the grid,
// what is given up; undo of the plan below it.

#include "seating/desk_designer.h"
#include "seating/desk_seats.h"
#include "seating/plan_editor.h"
#include "seating/plan_layout.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int pixel = 15; ///< in twips

class HeardEvents : public DeskEvents {
public:
    void EventBeginDrag(qint64 desk, bool& cancel) override {
        hear(u"begin %1"_s.arg(desk), cancel);
    }
    void EventStopDrag(qint64, const QRect& place, bool& cancel) override {
        hear(u"stop "_s + text(place), cancel);
    }
    void EventDragMove(qint64, const QRect& place) override { heard += u"move "_s + text(place); }
    void EventDragResize(qint64, const QRect& place, int handle) override {
        heard += u"resize %1 "_s.arg(handle) + text(place);
    }
    void EventBeforeEdit(qint64 desk, bool& cancel) override {
        hear(u"edit %1"_s.arg(desk), cancel);
    }
    void EventAfterEdit(qint64, const QString& caption, bool& cancel) override {
        hear(u"after "_s + caption, cancel);
    }
    void ObjectDrop(qint64 desk, const QString& object, bool& cancel) override {
        hear(u"drop %1 "_s.arg(desk) + object, cancel);
    }
    QStringList take() { return std::exchange(heard, {}); }

    QStringList heard;
    QString refused; ///< the event that is cancelled

private:
    static QString text(const QRect& place) {
        return u"%1,%2,%3,%4"_s.arg(place.left() / pixel)
            .arg(place.top() / pixel)
            .arg(place.width() / pixel)
            .arg(place.height() / pixel);
    }
    void hear(const QString& event, bool& cancel) {
        heard += event;
        cancel = !refused.isEmpty() && event.startsWith(refused);
    }
};

class DesignerTest : public testing::Test {
protected:
    using State = DeskDesigner::State;

    DesignerTest() {
        editor.show({{.id = 1, .place = inTwips(15, 15, 57, 41), .caption = u"Ann\r\nLee"_s},
                     {.id = 2, .place = inTwips(71, 15, 57, 41), .caption = u"Bo\r\nMay"_s},
                     {.id = -1, .place = inTwips(200, 15, 57, 41), .caption = u"EMPTY"_s},
                     {.id = 0, .place = inTwips(100, 200, 113, 41), .caption = u"TEACHER"_s}});
        designer.attach(&editor, true, true, events);
    }
    static QRect inTwips(int left, int top, int width, int height) {
        return {left * pixel, top * pixel, width * pixel, height * pixel};
    }
    static QPoint at(int x, int y) { return {x * pixel, y * pixel}; }
    QRect place(qint64 id) { return editor.desks()[deskPlace(editor.desks(), id)].place; }
    void drag(QPoint from, QPoint to) {
        designer.press(from);
        designer.move(to);
        designer.release(to);
    }

    HeardEvents events;
    PlanEditor editor;
    DeskDesigner designer{QSize(pixel, pixel)};
};

} // namespace

TEST_F(DesignerTest, ADeskIsSelectedMovedAndSnapped) {
    EXPECT_EQ(designer.state(), State::Attached);
    designer.press(at(20, 20));
    EXPECT_EQ(designer.state(), State::Selected);
    designer.move(at(21, 20));
    EXPECT_EQ(designer.state(), State::Selected) << "a hand is never quite still";
    designer.move(at(50, 120));
    EXPECT_EQ(designer.state(), State::Dragging);
    EXPECT_EQ(place(1), inTwips(15, 15, 57, 41)) << "a frame is dragged, not the desk";
    // 45 is nearer to 48, 115 to 112.
    EXPECT_EQ(designer.dragFrame(), inTwips(48, 112, 57, 41));
    designer.release(at(50, 120));
    EXPECT_EQ(place(1), inTwips(48, 112, 57, 41));
    EXPECT_EQ(events.take(), QStringList({u"begin 1"_s, u"move 48,112,57,41"_s,
                                          u"move 48,112,57,41"_s, u"stop 48,112,57,41"_s}));
    designer.setSnapToGrid(false);
    drag(at(50, 120), at(0, 0));
    EXPECT_EQ(place(1), inTwips(0, 0, 57, 41)) << "no further than the edge of the room";
    designer.press(at(300, 300));
    EXPECT_EQ(designer.state(), State::Attached) << "the background selects none";
}

TEST_F(DesignerTest, EveryHandleMovesItsEdgesAndNoOther) {
    const struct {
        int handle;
        const char* heard; ///< dragged by 16 pixels to the right and down from 16,16,56,40
    } cases[] = {{0, "32,32,40,24"}, {1, "16,32,56,24"}, {2, "16,32,72,24"}, {3, "16,16,72,40"},
                 {4, "16,16,72,56"}, {5, "16,16,56,56"}, {6, "32,16,40,56"}, {7, "32,16,40,40"}};
    for (const auto& each : cases) {
        editor.show({{.id = 1, .place = inTwips(16, 16, 56, 40)}});
        designer.select(1);
        const QPoint grip = designer.handles()->at(static_cast<size_t>(each.handle)).center();
        drag(grip, grip + at(16, 16));
        EXPECT_EQ(events.take().last(), u"stop "_s + QLatin1String(each.heard)) << each.handle;
    }
    const QPoint corner = designer.handles()->at(4).center();
    drag(corner, corner - at(500, 500));
    EXPECT_EQ(place(1).size(), QSize(8, 8) * pixel) << "never smaller";
    designer.setDragEnabled(false);
    EXPECT_FALSE(designer.handles());
    drag(place(1).center(), at(100, 100));
    EXPECT_EQ(place(1).left(), 32 * pixel);
    EXPECT_EQ(designer.state(), State::Selected);
}

TEST_F(DesignerTest, ADragThatIsGivenUpOrRefusedChangesNothing) {
    const QRect before = place(1);
    const struct {
        const char* what;
        std::function<void()> act;
        QString refused;
    } cases[] = {
        {"Escape, or a lost grab", [this] { designer.cancel(); }, {}},
        {"dragging turned off", [this] { designer.setDragEnabled(false); }, {}},
        {"another class", [this] { designer.detach(); }, {}},
        {"the begin refused", [] {}, u"begin"_s},
        {"the end refused", [] {}, u"stop"_s},
    };
    for (const auto& each : cases) {
        designer.attach(&editor, false, true, events);
        designer.setDragEnabled(true);
        events.refused = each.refused;
        designer.press(at(20, 20));
        designer.move(at(90, 90));
        each.act();
        designer.move(at(95, 95));
        designer.release(at(95, 95));
        EXPECT_EQ(place(1), before) << each.what;
        EXPECT_FALSE(designer.isDragging()) << each.what;
    }
    EXPECT_FALSE(editor.isChanged());
}

TEST_F(DesignerTest, KeysMoveAndSizeAStepOfTheGrid) {
    EXPECT_FALSE(designer.step(1, 0)) << "nothing is selected";
    designer.select(1);
    EXPECT_TRUE(designer.step(1, 0));
    EXPECT_EQ(place(1), inTwips(24, 15, 57, 41)) << "only the way of the arrow is snapped";
    designer.step(0, -1);
    designer.step(0, -1);
    EXPECT_EQ(place(1).top(), 0);
    designer.stretch(1, 0);
    EXPECT_EQ(place(1), inTwips(24, 0, 64, 41));
    designer.stretch(0, 1);
    EXPECT_EQ(place(1).height(), 48 * pixel);
    for (int undone = 0; editor.history().canUndo(); ++undone) {
        ASSERT_LT(undone, 5);
        editor.history().undo();
    }
    EXPECT_EQ(place(1), inTwips(15, 15, 57, 41));
    EXPECT_FALSE(editor.isChanged());
}

TEST_F(DesignerTest, TheGridAndTheCaptionHaveTheirLimits) {
    for (const auto& [wanted, got] : {std::pair{2, 3}, {8, 8}, {300, 256}}) {
        designer.setGridSize(wanted);
        EXPECT_EQ(designer.gridSize(), got);
    }
    EXPECT_FALSE(designer.attach(&editor, false, false, events)) << "it works already";
    EXPECT_FALSE(DeskDesigner(QSize(pixel, pixel)).attach(nullptr, true, true, events));
    EXPECT_TRUE(designer.drop(at(210, 20), u"Zoë"_s));
    EXPECT_FALSE(designer.drop(at(500, 500), u"Zoë"_s));
    designer.select(0);
    ASSERT_TRUE(designer.beginEdit());
    designer.editText(u"Ms Hill"_s);
    designer.detach();
    EXPECT_EQ(editor.desks().last().caption, u"Ms Hill"_s) << "kept before it ends";
    EXPECT_EQ(events.take(), QStringList({u"drop -1 Zoë"_s, u"edit 0"_s, u"after Ms Hill"_s}));
    designer.attach(&editor, false, true, events);
    designer.select(-1);
    for (const QString& refused : {u"edit"_s, u"after"_s, QString()}) {
        events.refused = refused;
        EXPECT_EQ(designer.beginEdit(), refused != u"edit"_s);
        designer.editText(u"Bag"_s);
        designer.endEdit(!refused.isEmpty());
        EXPECT_EQ(editor.desks()[2].caption, u"EMPTY"_s) << qPrintable(refused);
    }
}

TEST_F(DesignerTest, AShuffleIsUndoneWithoutThoseWhoHaveGone) {
    const Desks before = editor.desks();
    editor.change(u"shuffle"_s, [](Desks& desks) { shuffle(desks, [] { return 0.0; }); });
    drag(at(110, 210), at(150, 150));
    const Desks after = editor.desks();
    editor.remove({2});
    designer.select(2);
    EXPECT_FALSE(designer.selected());
    editor.history().undo();
    editor.history().undo();
    Desks expected = before;
    expected.removeAt(1);
    EXPECT_EQ(editor.desks(), expected);
    editor.history().redo();
    editor.history().redo();
    expected = after;
    expected.removeAt(1);
    EXPECT_EQ(editor.desks(), expected);
    editor.setSaved();
    EXPECT_FALSE(editor.history().canUndo());
}

TEST_F(DesignerTest, DesksAreSpokenByRowAndPlace) {
    Desks desks = editor.desks();
    desks[0].place.moveTop(20 * pixel);
    desks += {.id = -2, .place = inTwips(5, 100, 57, 41), .caption = u"EMPTY"_s};
    EXPECT_EQ(spokenDesks(desks),
              QStringList({u"Ann Lee, row 1, desk 1"_s, u"Bo May, row 1, desk 2"_s,
                           u"EMPTY, row 1, desk 3"_s, u"TEACHER, the teacher's desk"_s,
                           u"EMPTY, row 2, desk 1"_s}));
}
