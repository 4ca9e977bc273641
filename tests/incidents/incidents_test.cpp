// Reports of incidents without their window: tables of every age, names, titles, the way into a
// text.

#include "incidents/incident_settings.h"
#include "incidents/incident_titles.h"
#include "incidents/incident_tree_model.h"
#include "incidents/new_incident.h"
#include "incidents/report_document.h"
#include "richtext/plain_text.h"
#include "store/table_names.h"
#include "store/table_structure.h"
#include "support/class_file.h"
#include "support/year_session.h"

namespace {

class IncidentsTest : public YearSession {
protected:
    IncidentsTest() {
        openYear(oneWeekAnswers());
        session.ShortDateFormat = u"dd/MM/yyyy"_s;
    }
    const dao::Database& year() { return session.CurrentDB; }
    qint64 add(const QString& forename, const QString& surname, QDate date = QDate(2024, 9, 9)) {
        const auto made = createIncident(
            session,
            {.surname = surname, .forename = forename, .date = date, .event = u"Fighting"_s});
        return made.value_or(0);
    }
    QStringList tree() {
        IncidentTreeModel model(session.ShortDateFormat);
        model.setIncidents(readIncidents(year()));
        QStringList lines;
        for (int group = 0; group < model.rowCount(); ++group) {
            QStringList line{model.groupIndex(group).data().toString()};
            for (int row = 0; row < model.rowCount(model.groupIndex(group)); ++row)
                line += model.memberIndex(group, row).data().toString();
            lines += line.join(u'|');
        }
        return lines;
    }
    /// The one table of an older program; a row has the texts of its fields, "-" for Null.
    void makeFlatTable(const QList<QStringList>& rows) {
        const QStringList fields{u"Surname"_s, u"Forename"_s, u"Tutor"_s, u"Date"_s, u"Incident"_s};
        dao::TableDef table(u"Incidents"_s);
        for (const QString& field : fields)
            table.Fields().Append(dao::TableDef::CreateField(
                field, field == u"Incident" ? dao::DataType::Memo : dao::DataType::Text, 60));
        year().TableDefs().Append(table);
        dao::Recordset records = year().OpenRecordset(u"Incidents"_s);
        for (const QStringList& row : rows) {
            records.AddNew();
            for (int field = 0; field < fields.size(); ++field)
                if (row.at(field) != u"-")
                    records.SetCollect(field, row.at(field));
            records.Update();
        }
    }
};

} // namespace

TEST_F(IncidentsTest, PupilsShareARowByNameAndGoWithTheirLastReport) {
    Check_Incident_Tables(year());
    const qint64 first = add(u"Zoë"_s, u"O'Brien"_s);
    add(u"Ann"_s, u"Lee"_s);
    const qint64 second = add(u"Zoë"_s, u"O'Brien"_s, QDate(2025, 1, 31));
    add(u"Abe"_s, u"Lee"_s, QDate(2099, 12, 31));
    EXPECT_EQ(tree(), QStringList({u"Abe Lee|31/12/2099"_s, u"Ann Lee|09/09/2024"_s,
                                   u"Zoë O'Brien|31/01/2025|09/09/2024"_s}));
    deleteIncident(year(), first);
    EXPECT_EQ(tree().last(), u"Zoë O'Brien|31/01/2025"_s);
    deleteIncident(year(), second);
    EXPECT_EQ(rows(IncidentNamesTable).RecordCount(), 2);
    deletePupilIncidents(year(), readIncidents(year()).first().pupil.id);
    EXPECT_EQ(tree(), QStringList(u"Ann Lee|09/09/2024"_s));
    EXPECT_EQ(rows(IncidentDetailsTable).RecordCount(), 1);
}

TEST_F(IncidentsTest, WhatIsMissingIsTold) {
    Check_Incident_Tables(year());
    seams.prompts.expect(PromptKind::Message, u"Create Incident"_s, AnswerOk);
    EXPECT_EQ(add(u"Ann"_s, {}), 0);
    for (const QDate date : {QDate(), QDate(1999, 12, 31), QDate(2100, 1, 1)}) {
        seams.prompts.expect(PromptKind::Message, {}, AnswerOk);
        EXPECT_EQ(add(u"Ann"_s, u"Lee"_s, date), 0);
    }
    EXPECT_EQ(seams.prompts.last().text, u"You must enter a valid date of the incident."_s);
    EXPECT_EQ(rows(IncidentNamesTable).RecordCount(), 0);
}

TEST_F(IncidentsTest, AnOlderTableMovesWithItsNullsAndOnlyOnce) {
    makeFlatTable({{u"O'Brien"_s, u"Zoë"_s, u"Ms Hartley"_s, u"04-05-06"_s, u"{\\rtf1 first}"_s},
                   {u"O'BRIEN"_s, u"zoë"_s, u"-"_s, u"-"_s, u"-"_s},
                   {u"-"_s, u"Nemo"_s, u"A tutor with a long name"_s, u"soon"_s, u"-"_s},
                   {u"-"_s, u"Nemo"_s, u"-"_s, u"04-13-06"_s, u"-"_s}});
    EXPECT_EQ(Check_Incident_Tables(year()), 1) << "the long name of the tutor";
    EXPECT_FALSE(TableExists(year(), u"Incidents"_s));
    EXPECT_EQ(tree(),
              QStringList({u"Nemo |soon|04-13-06"_s, u"Zoë O'Brien|06/05/2004|(no date)"_s}));
    EXPECT_EQ(rows(IncidentDetailsTable).Collect(u"Incident").toText(), u"{\\rtf1 first}"_s);
    EXPECT_EQ(Check_Incident_Tables(year()), 0);
    EXPECT_EQ(rows(IncidentDetailsTable).RecordCount(), 4);
}

TEST_F(IncidentsTest, ATableWithoutAddresseesGetsThem) {
    Check_Incident_Tables(year());
    dao::FieldCollection fields = year().TableDefs()[IncidentDetailsTable].Fields();
    fields.Delete(u"CC");
    fields.Delete(u"SendTo");
    Check_Incident_Tables(year());
    fields = year().TableDefs()[IncidentDetailsTable].Fields();
    EXPECT_EQ(fields[fields.Count() - 2].Name, u"SendTo"_s);
    EXPECT_EQ(fields[fields.Count() - 1].Name, u"CC"_s);
}

TEST_F(IncidentsTest, ANewTitleIsOfferedBehindTheBuiltInOnes) {
    Check_Incident_Tables(year());
    for (const QString& title :
         {u"Bullying"_s, u"Lost 'homework'"_s, u"Lost 'homework'"_s, QString()})
        createIncident(
            session,
            {.surname = u"Lee"_s, .forename = u"Ann"_s, .date = QDate(2024, 9, 9), .event = title});
    EXPECT_EQ(incidentTitles(settings).size(), 8);
    EXPECT_EQ(incidentTitles(settings).first(), u"Rudeness to a member of staff"_s);
    QList<SettingEntry> kept;
    settings.EnumRegistryValues(setting::keyOf(setting::IncidentTitles), kept);
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(kept.first().name, u"1"_s);
    EXPECT_EQ(kept.first().content.toText(), u"Lost 'homework'"_s);
}

TEST_F(IncidentsTest, TheForenameGoesIntoATextUpToItsFirstBlank) {
    const struct {
        QString forename;
        QString surname;
        QString inserted;
    } cases[] = {{u"mary ann"_s, u"Lee"_s, u"Mary "_s},
                 {u"ANN "_s, u"Lee"_s, u"Ann "_s},
                 {u"élodie"_s, u"Lee"_s, u"Élodie "_s},
                 {{}, u"Lee"_s, u" "_s}};
    for (const auto& each : cases)
        EXPECT_EQ(insertedForename({.forename = each.forename, .surname = each.surname}),
                  each.inserted);
}

TEST_F(IncidentsTest, ATutorIsTakenFromTheOnePupilOfTheName) {
    addPupils(year(), u"7A"_s, {u"O'Brien,Zoë"_s, u"Lee,Ann"_s, u"Lee,Ann"_s});
    dao::Recordset pupils = rows(u"SELECT * FROM Class_7A"_s);
    for (; !pupils.EOF_(); pupils.MoveNext()) {
        pupils.Edit();
        pupils.SetCollect(u"Tutor", u"T"_s + pupils.Collect(u"Surname").toText().left(2));
        pupils.Update();
    }
    QStringList tutors;
    for (const ClassPupil& each : classPupils(year(), u"7A"_s))
        tutors += each.surname + u':' + tutorOf(year(), u"7A"_s, each);
    EXPECT_EQ(tutors, QStringList({u"Lee:"_s, u"Lee:"_s, u"O'Brien:TO'"_s}));
}

TEST_F(IncidentsTest, AReportGoesIntoTheTeachersTemplate) {
    Check_Incident_Tables(year());
    const qint64 report = add(u"Zoë"_s, u"O'Brien"_s);
    put(u"IncidentDetails"_s, u"Further"_s, u"{\\rtf1 Sent {\\b home}\\par twice}"_s);
    put(u"IncidentDetails"_s, u"SendTo"_s, u"Head {of} year"_s);
    session.TeacherName = u"Ms Hill"_s;
    const DocumentPlace place{
        .appPath = folder.path() + u'/', .webAddress = {}, .target = path(u"made.rtf"_s)};
    ASSERT_TRUE(CreateWordDoc(session, place, *readReportTexts(session, report)));
    QFile file(place.target);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString source = QString::fromLatin1(file.readAll());
    EXPECT_TRUE(source.contains(u"{\\title Zo\\'eb O'Brien}"_s));
    const QString text = richtext::plainText(source).simplified();
    for (const QString& part :
         {u"Pupil Zoë O'Brien"_s, u"Date 09/09/2024"_s, u"Teacher Ms Hill"_s,
          u"To Head {of} year"_s, u"Incident Fighting"_s, u"Further action Sent home twice"_s})
        EXPECT_TRUE(text.contains(part)) << qPrintable(text);
    EXPECT_FALSE(readReportTexts(session, report + 1));
}
