// The address book of two thousand contacts: opened and painted beside the raw SELECT into a bare
// tree over a ready-made model, and filled from a comma-separated file beside raw inserts into a
// table of the same checks.

#include "core/session.h"
#include "figures.h"
#include "organiser/address_book.h"
#include "organiser/screens/address_book_window.h"
#include "quiet_session.h"
#include "raw_library.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QStandardItemModel>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

constexpr int contactCount = 2000;
constexpr QSize treeSize(760, 520);

QString forenameOf(int contact) {
    return u"Forename%1"_s.arg(contact);
}
QString surnameOf(int contact) {
    return QChar(static_cast<char16_t>(u'A' + contact % 26)) + u"surname%1"_s.arg(contact);
}

QByteArray contactsCsv() {
    QString text = u"First Name,Last Name,Home Street,Home Phone,E-mail Address\n"_s;
    for (int contact = 0; contact < contactCount; ++contact)
        text += u"%1,%2,\"%3 Mill Lane, Westhaven\",01632 960%3,a%3@example.org\n"_s.arg(
            forenameOf(contact), surnameOf(contact), QString::number(contact));
    return text.toUtf8();
}

/// Makes an address book without contacts, and answers its path.
QString emptyBook(const QString& path) {
    QuietSession quiet(QFileInfo(path).path());
    AddressBook(quiet.session()).open(path);
    return path;
}

void drawTree() {
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

class BookOpened : public Work {
public:
    explicit BookOpened(const QString& folder) : m_quiet(folder) {
        m_quiet.session().AppPath = folder + u'/';
        AddressBook book(m_quiet.session());
        book.load_Contacts_DB();
        QFile csv(folder + u"/addresses.csv"_s);
        if (csv.open(QIODevice::WriteOnly))
            csv.write(contactsCsv());
        csv.close();
        book.import_csv(csv.fileName());
    }
    void run() override {
        m_window = std::make_unique<AddressBookWindow>(m_quiet.session());
        m_window->show();
        drawTree();
    }
    qint64 finish() override {
        m_window.reset();
        return 1;
    }

private:
    QuietSession m_quiet;
    std::unique_ptr<AddressBookWindow> m_window;
};

class BareTree : public Work {
public:
    explicit BareTree(const QString& path) : m_path(path) {}
    void run() override {
        RawDatabase book(m_path);
        const RawStatement rows = book.prepare("SELECT * FROM Contacts ORDER BY Surname, Forename");
        m_model = std::make_unique<QStandardItemModel>();
        std::array<QStandardItem*, 26> groups{};
        for (size_t group = 0; group < groups.size(); ++group) {
            groups.at(group) = new QStandardItem(QString(QChar(u'A' + static_cast<int>(group))));
            m_model->appendRow(groups.at(group));
        }
        const auto text = [&](int column) {
            return QString::fromUtf8(
                reinterpret_cast<const char*>(sqlite3_column_text(rows.get(), column)));
        };
        while (book.step(rows)) {
            readColumns(rows);
            const QString surname = text(0);
            groups.at(static_cast<size_t>(surname.at(0).unicode() - u'A'))
                ->appendRow(new QStandardItem(text(1) + u' ' + surname));
        }
        m_tree = std::make_unique<QTreeView>();
        m_tree->setModel(m_model.get());
        m_tree->resize(treeSize);
        m_tree->show();
        drawTree();
    }
    qint64 finish() override {
        m_tree.reset();
        m_model.reset();
        return 1;
    }

private:
    QString m_path;
    std::unique_ptr<QStandardItemModel> m_model;
    std::unique_ptr<QTreeView> m_tree;
};

class CsvImported : public Work {
public:
    explicit CsvImported(const QString& folder)
        : m_quiet(folder)
        , m_book(m_quiet.session())
        , m_csv(folder + u"/import.csv"_s)
        , m_path(folder + u"/import.mdb"_s) {
        m_book.open(m_path);
        QFile csv(m_csv);
        if (csv.open(QIODevice::WriteOnly))
            csv.write(contactsCsv());
    }
    void prepare() override {
        m_book.close();
        QFile::remove(m_path);
        m_book.open(m_path);
    }
    void run() override { m_book.import_csv(m_csv); }
    qint64 finish() override { return contactCount; }

private:
    QuietSession m_quiet;
    AddressBook m_book;
    QString m_csv;
    QString m_path;
};

class RawInserts : public Work {
public:
    explicit RawInserts(const QString& bookPath) : m_database(bookPath) {
        for (int contact = 0; contact < contactCount; ++contact)
            m_rows += QList<QByteArray>{surnameOf(contact).toUtf8(),
                                        forenameOf(contact).toUtf8(),
                                        surnameOf(contact).left(1).toUtf8(),
                                        "1 Mill Lane, Westhaven",
                                        "01632 960",
                                        "a@example.org"};
    }
    void prepare() override { m_database.execute("DELETE FROM Contacts"); }
    void run() override {
        const RawStatement insert =
            m_database.prepare("INSERT INTO Contacts (Surname, Forename, GroupID, HomeAddress, "
                               "HomeTelephone, HomeEmail1) VALUES (?1, ?2, ?3, ?4, ?5, ?6)");
        m_database.execute("BEGIN IMMEDIATE");
        for (const QList<QByteArray>& row : m_rows) {
            for (int i = 0; i < row.size(); ++i)
                sqlite3_bind_text(insert.get(), i + 1, row.at(i).constData(),
                                  static_cast<int>(row.at(i).size()), SQLITE_STATIC);
            m_database.step(insert);
            sqlite3_reset(insert.get());
        }
        m_database.execute("COMMIT");
    }
    qint64 finish() override { return contactCount; }

private:
    RawDatabase m_database;
    QList<QList<QByteArray>> m_rows;
};

} // namespace

std::vector<Figure> addressBookFigures(const QString& folder) {
    constexpr int rounds = 15;
    constexpr double openBound = 1.5;
    constexpr double importBound = 3;
    const QString own = folder + u"/book"_s;
    std::vector<Figure> figures;
    figures.push_back({u"address book of 2,000 opened"_s, openBound, rounds,
                       std::make_unique<BookOpened>(own),
                       std::make_unique<BareTree>(own + u"/AddressBook.mdb"_s)});
    figures.push_back({u"import of 2,000 contacts"_s, importBound, rounds,
                       std::make_unique<CsvImported>(own + u"_csv"_s),
                       std::make_unique<RawInserts>(emptyBook(own + u"_csv/raw.mdb"_s))});
    return figures;
}
