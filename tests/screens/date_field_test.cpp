#include "controls/date_field.h"

#include "controls/date_calendar.h"
#include "support/screen_checks.h"

#include <QSignalSpy>

namespace {

class CalendarTest : public testing::Test {
protected:
    CalendarTest() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
        m_calendar = std::make_unique<DateField>(u"First day of term"_s);
        m_calendar->setRange(QDate(2024, 9, 4), QDate(2025, 7, 18));
        m_calendar->setDate(QDate(2024, 9, 25));
        m_calendar->show();
    }
    ~CalendarTest() override { QLocale::setDefault(QLocale::c()); }

    QLineEdit& field() { return control<QLineEdit>(*m_calendar, u"txtDate"_s); }
    DateCalendar& sheet() { return *m_calendar->findChild<DateCalendar*>(); }

    std::unique_ptr<DateField> m_calendar;
};

} // namespace

TEST_F(CalendarTest, KeysStepWithinTheRange) {
    const struct {
        Qt::Key key;
        QDate date;
    } steps[] = {
        {Qt::Key_Up, QDate(2024, 9, 26)},      {Qt::Key_PageUp, QDate(2024, 10, 26)},
        {Qt::Key_Down, QDate(2024, 10, 25)},   {Qt::Key_PageDown, QDate(2024, 9, 25)},
        {Qt::Key_PageDown, QDate(2024, 9, 4)},
    };
    for (const auto& [key, date] : steps) {
        QTest::keyClick(&field(), key);
        EXPECT_EQ(m_calendar->date(), date) << key;
    }
    checkScreen(*m_calendar, u"calendar_field"_s);
}

TEST_F(CalendarTest, TheDropDownGivesTheDayChosen) {
    QSignalSpy changed(m_calendar.get(), &DateField::dateChanged);
    for (const bool byKey : {true, false}) {
        m_calendar->setDate(QDate(2024, 9, 25));
        changed.clear();
        if (byKey)
            QTest::keyClick(&field(), Qt::Key_Down, Qt::AltModifier);
        else
            m_calendar->findChild<QToolButton*>()->click();
        ASSERT_TRUE(sheet().isVisible());
        EXPECT_EQ(sheet().firstDayOfWeek(), Qt::Sunday);
        QWidget* popup = sheet().window();
        checkScreen(*popup, u"calendar_popup"_s);
        QWidget* days = sheet().focusProxy() ? sheet().focusProxy() : &sheet();
        QTest::keyClick(days, Qt::Key_Right);
        QTest::keyClick(days, Qt::Key_Return);
        EXPECT_FALSE(sheet().isVisible());
        EXPECT_EQ(field().text(), u"26/09/2024"_s);
        ASSERT_EQ(changed.size(), 1);
        EXPECT_EQ(changed[0][0].toDate(), QDate(2024, 9, 26));
    }
}

TEST_F(CalendarTest, WhatIsNoDateInRangeIsNone) {
    for (const QString& text : {u""_s, u"tomorrow"_s, u"31/06/2025"_s, u"01/09/2024"_s}) {
        field().setText(text);
        EXPECT_FALSE(m_calendar->date().isValid()) << text.toStdString();
    }
    m_calendar->setDate({});
    EXPECT_EQ(field().text(), QString());
}
