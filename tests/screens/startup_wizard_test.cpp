// The start-up wizard in the frame, driven through its own controls.

#include "calendar/term_weeks.h"
#include "frame/screens/frame_menus.h"
#include "frame/year_roads.h"
#include "support/engine_places.h"
#include "support/screen_wizard.h"
#include "year/recent_years.h"
#include "year/wizard_rules.h"

#include <QProcess>

namespace {

/// A line for every row of every table, and one for each table's fields.
QStringList contents(const QString& path) {
    QStringList lines;
    const dao::Database database = dao::DBEngine().OpenDatabase(path);
    for (const QString& table : database.TableDefs().names()) {
        lines += table + u'|' + fieldNames(database, table).join(u'|');
        lines += rowsOf(database, table);
    }
    return lines;
}

/// The first line in which two files differ; empty for two of the same content.
std::string difference(const QString& made, const QString& expected) {
    const QStringList a = contents(made);
    const QStringList b = contents(expected);
    for (qsizetype i = 0; i < std::max(a.size(), b.size()); ++i) {
        if (a.value(i) != b.value(i))
            return a.value(i).toStdString() + " where there should be " + b.value(i).toStdString();
    }
    return {};
}

/// The year of the answers as the wizard has to leave it: made from the answers, and opened once.
QString openedYear(const YearAnswers& answers, const QString& path, TestSeams& seams) {
    createYear(answers, path, seams);
    dao::DBEngine engine;
    Settings settings(path + u".ini"_s);
    Session session(engine, settings, seams.seams(), yearOpening());
    EXPECT_EQ(session.OpenDatabaseFile(path, {}), OpenDone);
    session.CloseAllDatabases();
    return path;
}

/// The wizard asks for no colours.
YearAnswers asked(YearAnswers answers) {
    answers.colours.clear();
    return answers;
}

/// Another program that has a file open, as long as the object lives.
class OtherProgram {
public:
    explicit OtherProgram(const QString& file) {
        m_process.start(test::tool(u"jet"_s), {file});
        m_process.write("SHOW TABLES\n");
        if (!m_process.waitForReadyRead())
            ADD_FAILURE() << "the other program does not answer";
    }
    ~OtherProgram() {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

private:
    QProcess m_process;
};

QString dates(const char* first, const char* last) {
    return QString::fromLatin1(first) + u"   to   "_s + QString::fromLatin1(last);
}

} // namespace

TEST_F(WizardTest, MakesTheYearsFileByKeysAlone) {
    for (const YearAnswers& answers : {asked(oneWeekAnswers()), asked(twoWeekAnswers())}) {
        const QString expected =
            openedYear(answers, path(answers.startWeek + u"expected.mdb"_s), seams);
        start();
        QStringList actions = startupActions();
        if (answers.twoWeeks) // a year was opened before
            actions.move(OpenAction, 0);
        EXPECT_EQ(items("CL1"), actions);
        on<QListWidget>("CL1").setCurrentRow(
            static_cast<int>(actions.indexOf(startupActions()[SetupAction])));
        answerAll(answers);
        ASSERT_EQ(shownFrame(), FileFrame);
        EXPECT_EQ(on<QLabel>("LBpage").text(), answers.twoWeeks ? u"Page 7"_s : u"Page 5"_s);
        EXPECT_EQ(on<QLineEdit>("DBName").text(), u"A Morrow (2024-2025).mdb"_s);
        const QString name = answers.startWeek + u"Own.mdb"_s;
        key(Qt::Key_A, Qt::ControlModifier);
        type(name);
        seams.prompts.expect(PromptKind::Plain, u"Create Database:"_s, AnswerOk);
        key(Qt::Key_Return);
        settle();
        EXPECT_FALSE(wizard);
        EXPECT_EQ(seams.progress.title, u"Creating Database:"_s);
        EXPECT_FALSE(seams.progress.isOpen);
        EXPECT_EQ(session.DatabasePath, saved(name));
        EXPECT_EQ(session.TeacherName, u"Mrs A Morrow"_s);
        EXPECT_EQ(frame->windowTitle(), mainCaption(saved(name)));
        EXPECT_EQ(difference(saved(name), expected), "");
        frame.reset();
        session.CloseAllDatabases();
        session.DatabasePath.clear();
    }
}

TEST_F(WizardTest, EveryPageIsLegibleNamedAndUncut) {
    StartupWizard window(session);
    window.show();
    wizard = &window;
    checkScreen(window, u"StartupWiz"_s);
    window.startSetup(u"0"_s);
    on<QLineEdit>("Text1").setText(u"A Morrow"_s);
    on<QCheckBox>("Chk2").setChecked(true);
    for (const QString& code : {u"7A"_s, u"13FM_1"_s}) {
        on<QLineEdit>("Text2").setText(code);
        click("cmdAddClass");
    }
    for (int number = 0; number < 7; ++number) {
        window.fillWeekA();
        window.fillWeekB();
        if (number == TermsFrame) {
            control<QLineEdit>(on<QWidget>("StartDate"), u"txtDate"_s).setText(u"4/9/2024"_s);
            control<QLineEdit>(on<QWidget>("EndDate"), u"txtDate"_s).setText(u"13/9/2024"_s);
            click("cmdAddPeriod");
        }
        if (number > TermsFrame) {
            window.nextInSetup(QString::number(TermsFrame));
            window.nextInSetup({});
        }
        window.nextInSetup(QString::number(number));
        checkScreen(window, u"StartupWiz_%1"_s.arg(number));
    }
}

TEST_F(WizardTest, RefusesWhatIsWrongAndStays) {
    start();
    YearAnswers answers = asked(twoWeekAnswers());
    const auto refuses = [&](const char* title, const char* text, int number) {
        seams.prompts.expect(PromptKind::Plain, QString::fromLatin1(title), AnswerOk);
        key(Qt::Key_Return);
        EXPECT_EQ(seams.prompts.last().text, QString::fromUtf8(text));
        EXPECT_EQ(shownFrame(), number);
    };
    key(Qt::Key_Return);
    refuses("Invalid Name", "You must enter a name for the Teacher", TeacherFrame);
    EXPECT_EQ(frame->focusWidget()->objectName(), u"Text1"_s);
    answerTeacher(answers);
    refuses("Classcodes", "You must enter at least one classcode!", ClassesFrame);

    for (const QChar character : u" -/+.,!*?:;@{|}~\\`'\"&()"_s) {
        seams.prompts.expect(PromptKind::Plain, u"Invalid Character"_s, AnswerOk);
        type(character);
        EXPECT_EQ(on<QLineEdit>("Text2").text(), QString())
            << static_cast<int>(character.unicode());
    }
    type(u"a[]^_9b"_s);
    EXPECT_EQ(on<QLineEdit>("Text2").text(), u"A[]^_9"_s);
    key(Qt::Key_Return);
    type(u"a[]^_9"_s);
    refuses("New Class Setup", "This Classcode is already in use! Please enter a unique code.",
            ClassesFrame);
    key(Qt::Key_A, Qt::ControlModifier);
    type(u"7a"_s);
    key(Qt::Key_Return);
    tabTo(u"List1"_s);
    key(Qt::Key_End);
    key(Qt::Key_Delete);
    EXPECT_EQ(items("List1"), QStringList(u"7A"_s));
    click("cmdNext");
    click("cmdNext");
    click("cmdNext");
    ASSERT_EQ(shownFrame(), TermsFrame);

    const char* const noDate = "You must include a valid date for the start and the end of each "
                               "teaching period.";
    refuses("Invalid entry", noDate, TermsFrame);
    type(u"31/6/2024"_s);
    key(Qt::Key_Tab);
    type(u"13/9/2024"_s);
    refuses("Invalid entry", noDate, TermsFrame);
    key(Qt::Key_A, Qt::ControlModifier);
    type(u"14/9/2024"_s);
    refuses("Invalid Teaching period",
            "The date for end of this teaching period, preceeds the starting date.  \n"
            "Please check the term dates carefully.",
            TermsFrame);
    answers.terms = {{QDate(2024, 9, 4), QDate(2024, 9, 20)},
                     {QDate(2024, 9, 19), QDate(2024, 9, 27)}};
    tabTo(u"txtDate"_s);
    key(Qt::Key_Tab, Qt::ShiftModifier);
    seams.prompts.expect(PromptKind::Plain, u"Period overlap"_s, AnswerOk);
    answerTerms(answers);
    EXPECT_EQ(shownFrame(), TermsFrame);
}

TEST_F(WizardTest, GoingBackAndForthLosesNothing) {
    start();
    const YearAnswers answers = asked(twoWeekAnswers());
    answerAll(answers);
    key(Qt::Key_A, Qt::ControlModifier);
    type(u"mine"_s);
    seams.prompts.expect(PromptKind::Plain, u"Invalid Character"_s, AnswerOk);
    type(u"?"_s);
    EXPECT_EQ(seams.prompts.last().text, u"This character is not allowed in a filename!"_s);
    const auto walkBack = [this](int pages) {
        for (int page = 0; page < pages; ++page)
            click("cmdBack");
    };
    // Through a shorter day, one week and a class that went and came back.
    walkBack(6);
    ASSERT_EQ(shownFrame(), TeacherFrame);
    on<QComboBox>("Combo3").setCurrentText(u"1"_s);
    on<QCheckBox>("Chk2").setChecked(false);
    click("cmdNext");
    tabTo(u"List1"_s);
    key(Qt::Key_Home);
    key(Qt::Key_Delete);
    for (int page = 0; page < 3; ++page)
        click("cmdNext");
    ASSERT_EQ(shownFrame(), FileFrame);
    walkBack(4);
    on<QComboBox>("Combo3").setCurrentText(u"5"_s);
    on<QCheckBox>("Chk2").setChecked(true);
    click("cmdNext");
    type(u"7a"_s);
    key(Qt::Key_Return);
    seams.prompts.expect(PromptKind::Plain, u"Setup incomplete"_s, AnswerYes);
    key(Qt::Key_Escape);
    EXPECT_EQ(shownFrame(), FirstPage);
    for (int page = 0; page < 7; ++page)
        click("cmdNext");
    ASSERT_EQ(shownFrame(), FileFrame);
    EXPECT_EQ(on<QLineEdit>("DBName").text(), u"mine"_s);
    EXPECT_EQ(on<QPushButton>("cmdNext").text(), u"Finish"_s);

    const QString expected = openedYear(answers, path(u"expected.mdb"_s), seams);
    const QString old = writeFile(saved(u"mine.mdb"_s), "old");
    seams.prompts.expect(PromptKind::Plain, u"File exists"_s, AnswerNo);
    click("cmdNext");
    EXPECT_EQ(bytesOf(old), "old");
    seams.prompts.expect(PromptKind::Plain, u"File exists"_s, AnswerYes);
    seams.prompts.expect(PromptKind::Plain, u"Create Database:"_s, AnswerOk);
    click("cmdNext");
    EXPECT_EQ(difference(saved(u"mine.mdb"_s), expected), "");
}

TEST_F(WizardTest, AFileThatCannotBeMadeIsToldAndTheAnswersStay) {
    start();
    answerAll(asked(oneWeekAnswers()));
    seams.prompts.expect(PromptKind::Folder, u"Select a directory location:"_s, path(u"gone"_s));
    click("cmdLocation");
    seams.prompts.expect(PromptKind::Plain, u"Create Database:"_s, AnswerOk);
    key(Qt::Key_Return);
    EXPECT_TRUE(seams.prompts.last().text.startsWith(u"The database could not be created:"_s));
    EXPECT_EQ(shownFrame(), FileFrame);
    EXPECT_TRUE(wizard->isEnabled());
    EXPECT_EQ(items("List1").size(), 3);
    on<QLineEdit>("DBName").clear();
    seams.prompts.expect(PromptKind::Plain, u"Invalid Filename"_s, AnswerOk);
    click("cmdNext");
}

TEST_F(WizardTest, CancelsByItsRules) {
    start();
    const auto asks = [this](const QString& title, PromptAnswer answer) {
        seams.prompts.expect(PromptKind::Plain, title, answer);
        key(Qt::Key_Escape);
        QCoreApplication::processEvents();
    };
    key(Qt::Key_Return);
    asks(u"Setup incomplete"_s, AnswerNo);
    EXPECT_EQ(shownFrame(), TeacherFrame);
    seams.prompts.expect(PromptKind::Plain, u"Setup incomplete"_s, AnswerYes);
    wizard->parentWidget()->close(); // the window's own close is a Cancel
    EXPECT_EQ(shownFrame(), FirstPage);
    asks(u"Quit"_s, AnswerYes);
    EXPECT_TRUE(wizard->isVisible());

    session.DatabasePath = path(u"none.mdb"_s);
    asks(u"Invalid Database"_s, AnswerOk);
    EXPECT_TRUE(seams.prompts.last().text.startsWith(u"The default database : "_s));
    EXPECT_TRUE(seams.prompts.last().text.endsWith(
        u"Please choose another action or press cancel again to quit."_s));
    EXPECT_TRUE(session.DatabasePath.isEmpty());
    createYear(oneWeekAnswers(), path(u"year.mdb"_s), seams);
    session.DatabasePath = path(u"year.mdb"_s);
    wizard->parentWidget()->close();
    settle();
    EXPECT_TRUE(!wizard && session.CurrentDB.isOpen());
    session.CloseAllDatabases();
    session.DatabasePath.clear();
    start();
    asks(u"Quit"_s, AnswerNo);
    EXPECT_FALSE(frame->isVisible());
}

TEST_F(WizardTest, HalfMadeAnswersAreNotLostOnTheWayOut) {
    createYear(oneWeekAnswers(), path(u"year.mdb"_s), seams);
    start();
    EXPECT_TRUE(frame->MayLeave());
    key(Qt::Key_Return);
    EXPECT_TRUE(frame->MayLeave()) << "nothing was answered";
    tabTo(u"Text1"_s);
    type(u"Brown"_s);
    click("cmdBack");
    const auto stays = [this] {
        seams.prompts.expect(PromptKind::Plain, u"Setup incomplete"_s, AnswerNo);
    };
    stays();
    frame->Unload();
    EXPECT_TRUE(frame->isVisible());
    const QString title = u" Select the database to open:"_s;
    for (int way = 0; way < 2; ++way) { // the menu's, and the wizard's own
        seams.prompts.expect(PromptKind::File, title, path(u"year.mdb"_s));
        stays();
        if (way == 0) {
            RunCommand(session, *frame, FrameCommand::OpenDatabase);
        } else {
            on<QListWidget>("CL1").setCurrentRow(OpenAction);
            click("cmdNext");
        }
        EXPECT_FALSE(session.CurrentDB.isOpen());
    }
    on<QListWidget>("CL1").setCurrentRow(SetupAction);
    click("cmdNext");
    EXPECT_EQ(on<QLineEdit>("Text1").text(), u"Brown"_s);
    seams.prompts.expect(PromptKind::Plain, u"Setup incomplete"_s, AnswerYes);
    key(Qt::Key_Escape);
    EXPECT_TRUE(frame->MayLeave()) << "they were given up";
}

TEST_F(WizardTest, RunsTheActionsOfItsFirstPage) {
    createYear(oneWeekAnswers(), path(u"year.mdb"_s), seams);
    start();
    const auto chooses = [this](int action, const QString& title, const QString& file) {
        on<QListWidget>("CL1").setCurrentRow(action);
        seams.prompts.expect(PromptKind::File, title, file);
    };
    const QString open = u" Select the database to open:"_s;
    chooses(OpenAction, open, {});
    click("cmdNext");
    chooses(OpenAction, open, path(u"none.mdb"_s));
    seams.prompts.expect(PromptKind::Plain, u"Invalid Database"_s, AnswerOk);
    click("cmdNext");
    EXPECT_TRUE(session.DatabasePath.isEmpty());
    chooses(RestoreAction, u" Select the backup database file to restore:"_s, {});
    click("cmdNext");
    chooses(BackupAction, u"Select the database to compress:"_s, path(u"year.mdb"_s));
    seams.prompts.expect(PromptKind::AutoMessage, u"Database Compacted:"_s, AnswerOk);
    click("cmdNext");
    ASSERT_TRUE(QFile::exists(saved(u"year.001"_s)));
    chooses(RestoreAction, u" Select the backup database file to restore:"_s, saved(u"year.001"_s));
    seams.prompts.expect(PromptKind::Plain, u"Restore Database"_s, AnswerOk);
    click("cmdNext");
    EXPECT_EQ(seams.prompts.last().text,
              u"The database has been restored to: \n\n"_s + saved(u"year.mdb"_s));
    chooses(OpenAction, open, path(u"year.mdb"_s));
    click("cmdNext");
    settle();
    EXPECT_FALSE(wizard);
    EXPECT_EQ(session.DatabasePath, path(u"year.mdb"_s));

    frame->menus().action(FrameCommand::SetupDatabase).trigger();
    wizard = frame->findChild<StartupWizard*>();
    ASSERT_TRUE(wizard);
    EXPECT_EQ(shownFrame(), TeacherFrame);
    EXPECT_TRUE(wizard->isEnabled());
    frame->EnableInput(false);
    EXPECT_TRUE(wizard->isEnabled());
}

TEST_F(WizardTest, AFileThatDoesNotOpenIsToldAndTheWizardStays) {
    writeFile(path(u"garbage.mdb"_s), "no database");
    for (const QString& name : {u"busy.mdb"_s, u"locked.mdb"_s})
        createYear(oneWeekAnswers(), path(name), seams);
    engine.OpenDatabase(path(u"locked.mdb"_s), true).NewPassword({}, u"secret"_s);
    const OtherProgram other(path(u"busy.mdb"_s));
    start();
    const struct {
        QString file;
        QString titleInWizard; ///< empty: nothing is told
        QString titleInMenu;
    } cases[] = {
        {u"garbage.mdb"_s, u"Invalid Database"_s, u"Invalid Database"_s},
        {u"busy.mdb"_s, u"Database already open."_s, u"Database already open"_s},
        {u"locked.mdb"_s, {}, {}},
    };
    for (const auto& [file, titleInWizard, titleInMenu] : cases) {
        on<QListWidget>("CL1").setCurrentRow(OpenAction);
        for (const bool byMenu : {false, true}) {
            seams.prompts.expect(PromptKind::File, u" Select the database to open:"_s, path(file));
            if (titleInWizard.isEmpty())
                seams.prompts.expect(PromptKind::Password, {});
            else if (byMenu)
                seams.prompts.expect(PromptKind::Message, titleInMenu, AnswerOk);
            else
                seams.prompts.expect(PromptKind::Plain, titleInWizard, AnswerOk);
            if (byMenu)
                frame->menus().action(FrameCommand::OpenDatabase).trigger();
            else
                click("cmdNext");
            settle();
            EXPECT_TRUE(session.DatabasePath.isEmpty()) << file.toStdString();
            EXPECT_FALSE(session.CurrentDB.isOpen()) << file.toStdString();
            EXPECT_EQ(frame->windowTitle(), u"Orvane: "_s);
            wizard = frame->findChild<StartupWizard*>();
            ASSERT_TRUE(wizard && wizard->isVisible()) << file.toStdString();
        }
    }

    on<QListWidget>("CL1").setCurrentRow(OpenAction);
    seams.prompts.expect(PromptKind::File, u" Select the database to open:"_s,
                         path(u"locked.mdb"_s));
    seams.prompts.expect(PromptKind::Password, {}, u"wrong"_s);
    seams.prompts.expect(PromptKind::Message, u"Invalid Password"_s, AnswerOk);
    seams.prompts.expect(PromptKind::Password, {}, u"secret"_s);
    click("cmdNext");
    settle();
    EXPECT_FALSE(wizard);
    EXPECT_TRUE(session.CurrentDB.isOpen());
}

TEST_F(WizardTest, ADatabaseCanBeRepaired) {
    createYear(oneWeekAnswers(), path(u"year.mdb"_s), seams);
    StartupWizard window(session);
    window.show();
    wizard = &window;
    EXPECT_EQ(items("CL1").size(), 5);
    on<QListWidget>("CL1").setCurrentRow(RepairAction);
    seams.prompts.expect(PromptKind::File, u"Select the database to repair:"_s, {});
    click("cmdNext");
    seams.prompts.expect(PromptKind::File, u"Select the database to repair:"_s,
                         path(u"year.mdb"_s));
    seams.prompts.expect(PromptKind::Message, u"Repair Database:"_s, AnswerYes);
    seams.prompts.expect(PromptKind::AutoMessage, u"Database Repaired:"_s, AnswerOk);
    click("cmdNext");
    EXPECT_EQ(session.OpenDatabaseFile(path(u"year.mdb"_s), {}), OpenDone);
}

TEST_F(WizardTest, ImportsTermDates) {
    const QString locked = path(u"locked.mdb"_s);
    createYear(twoWeekAnswers(), locked, seams);
    engine.OpenDatabase(locked, true).NewPassword({}, u"secret"_s);
    QFile::copy(test::testData(u"jet/year_ab_jet4.mdb"_s), path(u"jet.mdb"_s));
    QFile::copy(test::testData(u"jet/not_a_year.mdb"_s), path(u"other.mdb"_s));
    start();
    wizard->nextInSetup(QString::number(TermsFrame));
    const auto imports = [this](const QString& name) {
        seams.prompts.expect(PromptKind::File, u"Select the file to import term dates from:"_s,
                             name.isEmpty() ? name : path(name));
    };
    imports({});
    click("cmdImport");
    imports(u"locked.mdb"_s);
    seams.prompts.expect(PromptKind::Password, {}, u"wrong"_s);
    seams.prompts.expect(PromptKind::Message, u"Invalid Password"_s, AnswerOk);
    seams.prompts.expect(PromptKind::Password, {});
    click("cmdImport");
    for (const QString& name : {u"other.mdb"_s, u"none.mdb"_s}) {
        imports(name);
        seams.prompts.expect(PromptKind::Plain, u"Invalid format"_s, AnswerOk);
        click("cmdImport");
    }
    EXPECT_EQ(items("List2"), QStringList());
    imports(u"locked.mdb"_s);
    seams.prompts.expect(PromptKind::Password, {}, u"secret"_s);
    click("cmdImport");
    imports(u"jet.mdb"_s);
    click("cmdImport");
    EXPECT_EQ(items("List2").size(), 8);
    EXPECT_EQ(items("List2")[5], dates("06/06/2005", "20/07/2005"));
    EXPECT_EQ(items("List2")[6], dates("04/09/2024", "13/09/2024"));
}

TEST_F(WizardTest, TheYearOpenedLastIsOneKeyAway) {
    for (const QString& name : {u"a.mdb"_s, u"b.mdb"_s}) {
        createYear(oneWeekAnswers(), path(name), seams);
        NoteRecentYear(settings, path(name));
    }
    start();
    EXPECT_EQ(items("CL1")[0], u"Open an Existing database"_s);
    EXPECT_EQ(on<QComboBox>("cboYears").count(), 2);
    key(Qt::Key_Down);
    EXPECT_FALSE(on<QComboBox>("cboYears").isEnabled());
    key(Qt::Key_Up);
    key(Qt::Key_Return);
    EXPECT_EQ(session.CurrentDB.Name(), path(u"b.mdb"_s));
    frame->menus().action(FrameCommand::ReturnToWizard).trigger();
    wizard = frame->findChild<StartupWizard*>();
    seams.prompts.expect(PromptKind::File, u" Select the database to open:"_s, path(u"a.mdb"_s));
    click("cmdOtherYear");
    EXPECT_EQ(session.CurrentDB.Name(), path(u"a.mdb"_s));
}

TEST_F(WizardTest, WeekBCanBeginAsWeekA) {
    start();
    key(Qt::Key_Return);
    const YearAnswers answers = twoWeekAnswers();
    answerTeacher(answers);
    answerClasses(answers);
    answerWeek(answers, u'A');
    const auto weekB = [this] { return items("lbMonB") + items("lbFriB"); };
    const QStringList weekA = items("lbMon") + items("lbFri");
    click("cmdCopyWeek");
    EXPECT_EQ(weekB(), weekA);
    key(Qt::Key_Tab);
    key(Qt::Key_Space);
    ASSERT_NE(weekB(), weekA);
    seams.prompts.expect(PromptKind::Plain, u"Copy week A to week B"_s, AnswerNo);
    click("cmdCopyWeek");
    EXPECT_NE(weekB(), weekA);
    seams.prompts.expect(PromptKind::Plain, u"Copy week A to week B"_s, AnswerYes);
    click("cmdCopyWeek");
    EXPECT_EQ(weekB(), weekA);
}

TEST(WizardRules, TheSmallRules) {
    EXPECT_EQ(academicYears(QDate(2026, 3, 1)),
              (QStringList{u"2025-2026"_s, u"2026-2027"_s, u"2027-2028"_s, u"2028-2029"_s,
                           u"2029-2030"_s, u"2030-2031"_s, u"2031-2032"_s}));
    EXPECT_EQ(proposedYear(QDate(2026, 5, 31)), 0);
    EXPECT_EQ(proposedYear(QDate(2026, 6, 1)), 1);
    YearAnswers answers = twoWeekAnswers();
    answers.name = u" A/C <Morrow>? "_s;
    EXPECT_EQ(defaultFileName(answers), u"AC Morrow (2024-2025).mdb"_s);
    EXPECT_EQ(targetFile(u"/x/"_s, u" A.MDB "_s), u"/x/A.MDB"_s);
    EXPECT_EQ(targetFile(u"/x/"_s, u"A.b"_s), u"/x/A.b.mdb"_s);
    EXPECT_TRUE(checkFileName(u" .mdb"_s));
    EXPECT_FALSE(checkFileName(u"a"_s));
    const OpenFailure busy =
        chosenFileFailure({dao::OpenedExclusively, u"It is in use."_s, {}}, u"/x"_s);
    EXPECT_EQ(busy.title, u"Database already open."_s);
    EXPECT_TRUE(busy.text.contains(u"appears to be aready open by another user!"_s));
}
