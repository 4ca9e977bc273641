#include "core/typed_date.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(TypedDate, IsReadInTheOrderOfThePersonsForm) {
    const QLocale british(QLocale::English, QLocale::UnitedKingdom);
    const QLocale american(QLocale::English, QLocale::UnitedStates);
    const QLocale swedish(QLocale::Swedish, QLocale::Sweden);
    const struct {
        QLocale locale;
        QString text;
        QDate date;
    } cases[] = {
        {british, u"04/09/2024"_s, QDate(2024, 9, 4)},
        {british, u" 4.9.24 "_s, QDate(2024, 9, 4)},
        {british, u"4-9-99"_s, QDate(1999, 9, 4)},
        {british, u"29/02/2024"_s, QDate(2024, 2, 29)},
        {british, u"29/02/2025"_s, QDate()},
        {british, u"31/06/2025"_s, QDate()},
        {british, u"09/2024"_s, QDate()},
        {british, u"1/2/3/4"_s, QDate()},
        {british, u"1/2/20245"_s, QDate()},
        {british, u""_s, QDate()},
        {american, u"9/4/24"_s, QDate(2024, 9, 4)},
        {swedish, u"2024-09-04"_s, QDate(2024, 9, 4)},
    };
    for (const auto& [locale, text, date] : cases)
        EXPECT_EQ(typedDate(text, locale), date) << text.toStdString();
}

TEST(TypedDate, WhatIsShownReadsBackInEveryLanguage) {
    const QDate dates[] = {QDate(2024, 9, 4), QDate(2031, 12, 25)};
    for (const QLocale& locale :
         QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry)) {
        for (const QDate date : dates)
            EXPECT_EQ(typedDate(typedDateText(date, locale), locale), date)
                << locale.name().toStdString() << " " << typedDateText(date, locale).toStdString();
    }
}
