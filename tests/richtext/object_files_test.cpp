#include "richtext/object_files.h"

#include "richtext/formula.h"
#include "support/engine_files.h"

#include <QFileInfo>

namespace {

richtext::EmbeddedObject package(const QString& name, const QByteArray& content) {
    return {.className = u"Package"_s, .name = name, .content = content, .source = {}};
}

} // namespace

TEST(ObjectFiles, AreTheOwnersAloneAndGoWithTheProcess) {
    const QTemporaryDir place;
    QString path;
    {
        richtext::ObjectFiles files(place.path());
        path = files.write(package(u"Report.doc"_s, "text"));
        const QString again = files.write(package(u"Report.doc"_s, "other"));
        EXPECT_NE(path, again);
        EXPECT_EQ(QFile::permissions(path) &
                      ~(QFile::ReadUser | QFile::WriteUser | QFile::ReadOwner),
                  QFile::Permissions());
        const QString folder =
            QDir(place.path()).entryInfoList({u"objects-*"_s}).first().filePath();
        EXPECT_EQ(QFile::permissions(folder) &
                      (QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther),
                  QFile::Permissions());

        // Another process that starts leaves those of this one alone.
        richtext::ObjectFiles::removeLeftovers(place.path());
        EXPECT_TRUE(QFile::exists(path));
    }
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_TRUE(QDir(place.path()).isEmpty());
}

TEST(ObjectFiles, WhatAKilledProcessLeftGoes) {
    const QTemporaryDir place;
    ASSERT_TRUE(QDir(place.path()).mkpath(u"objects-abcdef/1"_s));
    QFile::setPermissions(writeFile(place.filePath(u"objects-abcdef/1/Report.doc"_s), {}),
                          QFile::ReadOwner);
    richtext::ObjectFiles::removeLeftovers(place.path());
    EXPECT_TRUE(QDir(place.path()).isEmpty());
}

TEST(ObjectFiles, NoNameLeadsOutOfTheFolder) {
    const QTemporaryDir place;
    richtext::ObjectFiles files(place.path());
    const struct {
        QString name;
        QString file;
    } names[] = {
        {u"../../evil.sh"_s, u"evil.sh"_s},
        {u"C:\\Docs\\plan.doc"_s, u"plan.doc"_s},
        {u".bashrc"_s, u"bashrc"_s},
        {u"-rf"_s, u"rf"_s},
        {u""_s, u"object"_s},
        {u".."_s, u"object"_s},
        {u"a\n\x01?.txt"_s, u"a___.txt"_s},
        {u"caf\u00E9.txt"_s, u"caf\u00E9.txt"_s},
        {QString(300, u'x') + u".txt"_s, QString(76, u'x') + u".txt"_s},
    };
    for (const auto& [name, file] : names)
        EXPECT_EQ(QFileInfo(files.write(package(name, "x"))).fileName(), file)
            << name.toStdString();
}

TEST(ObjectFiles, AFolderThatTakesNothingIsTold) {
    const QTemporaryDir place;
    richtext::ObjectFiles files(writeFile(place.filePath(u"file"_s), {}));
    EXPECT_TRUE(files.write(package(u"a"_s, "b")).isEmpty());
    EXPECT_TRUE(files.write(package(u"a"_s, "b")).isEmpty());
}

TEST(Formula, PlainKeysBecomeSigns) {
    const struct {
        QString typed;
        QString shown;
    } formulas[] = {
        {u"x^2 +- sqrt(pi) <= theta"_s, u"x\u00B2 \u00B1 \u221A(\u03C0) \u2264 \u03B8"_s},
        {u"H_2O"_s, u"H\u2082O"_s},
        {u"10^-12 * a_10"_s, u"10\u207B\u00B9\u00B2 \u00D7 a\u2081\u2080"_s},
        {u"pipe ^ x^n a->b <-> Omega"_s, u"pipe ^ x^n a\u2192b \u2194 \u03A9"_s},
        {u"\u00BD\u03C0 ^"_s, u"\u00BD\u03C0 ^"_s},
        {u""_s, u""_s},
    };
    for (const auto& [typed, shown] : formulas) {
        EXPECT_EQ(richtext::formulaText(typed), shown) << typed.toStdString();
        EXPECT_EQ(richtext::formulaText(shown), shown) << "typed again";
    }
}
