#include "desktop/screens/prompt_dialog.h"

#include "controls/colours.h"
#include "controls/fonts.h"
#include "core/clock.h"
#include "desktop/screens/prompt_pages.h"

#include <QCheckBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QColor paleYellow(255, 255, 204);

/// The rounded panel behind icon and text, in its own colours whatever the scheme.
class Balloon : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.setBrush(palette().window());
        const double radius = fontMetrics().height() / 2.0;
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    }
};

/// A text whose long words, paths mostly, can be broken anywhere, by blanks of no width.
QString breakable(const QString& text) {
    constexpr int longestWord = 40;
    QString result;
    int run = 0;
    for (const QChar character : text) {
        run = character.isSpace() ? 0 : run + 1;
        if (run > longestWord && !character.isLowSurrogate())
            result += QChar(0x200B);
        result += character;
    }
    return result;
}

/// Underlines in each caption the first letter that no other has. A caption that brings an
/// ampersand keeps it; OK and Cancel have Enter and Escape.
QStringList withAccessKeys(const QStringList& captions) {
    QString taken;
    for (const QString& caption : captions) {
        const qsizetype mark = caption.indexOf(u'&');
        if (mark >= 0 && mark + 1 < caption.size())
            taken += caption[mark + 1].toLower();
    }
    QStringList result;
    for (QString caption : captions) {
        const bool needsNone =
            caption.contains(u'&') || caption == u"OK"_s || caption == u"Cancel"_s;
        const auto letter = std::find_if(caption.cbegin(), caption.cend(), [&](QChar character) {
            return character.isLetter() && !taken.contains(character.toLower());
        });
        if (!needsNone && letter != caption.cend()) {
            taken += letter->toLower();
            caption.insert(letter - caption.cbegin(), u'&');
        }
        result += caption;
    }
    return result;
}

/// In the set of three a caption of its own can turn Cancel into an action; No is then what does
/// nothing.
PromptAnswer escapeAnswer(int flags, const QStringList& ownCaptions) {
    constexpr int cancelOfThree = 2;
    const bool cancelIsAction = promptButtons(flags).size() > cancelOfThree &&
                                decliningAnswer(flags) == AnswerCancel &&
                                !ownCaptions.value(cancelOfThree).isEmpty();
    return cancelIsAction ? AnswerNo : decliningAnswer(flags);
}

} // namespace

PromptDialog::PromptDialog(QWidget* parent)
    : QDialog(parent)
    , m_balloon(new Balloon)
    , m_icon(new QLabel)
    , m_text(new QLabel)
    , m_checkBox(new QCheckBox)
    , m_pages(new QVBoxLayout)
    , m_buttonRow(new QHBoxLayout) {
    setObjectName(u"msgFrm"_s);
    m_balloon->setObjectName(u"Balloon"_s);
    m_icon->setObjectName(u"imgIcon"_s);
    m_text->setObjectName(u"lblMessage"_s);
    m_checkBox->setObjectName(u"Check1"_s);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_checkBox->hide();
    m_icon->hide();

    auto* balloonRow = new QHBoxLayout(m_balloon);
    balloonRow->addWidget(m_icon, 0, Qt::AlignTop);
    balloonRow->addWidget(m_text, 1);
    m_buttonRow->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_balloon);
    layout->addLayout(m_pages);
    layout->addWidget(m_checkBox);
    layout->addLayout(m_buttonRow);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

BoxAnswer PromptDialog::msg_Box(const QString& text, int flags, const QString& title,
                                const BoxLook& look) {
    prepare(text, flags, title, look);
    return answer();
}

BoxAnswer PromptDialog::MsgAuto_box(const QString& text, int flags, const QString& title,
                                    int seconds, const BoxLook& look, Clock& clock) {
    prepare(text, flags, title, look);
    const auto timer = clock.after(std::chrono::seconds(seconds), [this] { m_default->click(); });
    return answer();
}

QString PromptDialog::input_box(const QString& text, int flags, const QString& title,
                                const QString& proposal, qint32 colour) {
    auto* page = new InputPage(text, proposal);
    addPage(page);
    BoxLook look;
    look.colour = colour;
    prepare(text, OkCancelButtons | (flags & IconMask), title, look);
    page->setFocus();
    return answer() == AnswerOk ? page->text() : QString();
}

std::optional<DatePeriod> PromptDialog::Date_Box(const QString& title, const DatePeriod& limits,
                                                 QDate today, Prompts& prompts) {
    auto* page = new PeriodPage(limits, today);
    addPage(page);
    m_mayAccept = [page, &prompts] {
        if (page->period())
            return true;
        prompts.PlainBox(u"The date to start from must preceed the date to end at. Please try "
                         "again."_s,
                         OkButton | WarningIcon, u"Invalid period"_s);
        page->setFocus();
        return false;
    };
    prepare({}, OkCancelButtons, title, {});
    page->setFocus();
    return answer() == AnswerOk ? page->period() : std::nullopt;
}

std::optional<LinkAnswer> PromptDialog::File_Link(const QString& title, const QString& text,
                                                  const QString& name, const QString& path,
                                                  Prompts& prompts) {
    auto* page = new LinkPage(name, path, prompts);
    addPage(page);
    m_mayAccept = [page] { return page->check(); };
    prepare(text, OkCancelButtons, title, {});
    page->setFocus();
    if (answer() != AnswerOk)
        return std::nullopt;
    return LinkAnswer{page->name(), page->path()};
}

void PromptDialog::ALL_File_Links(const QString& title, const QString& text,
                                  const QList<FileLink>& links,
                                  const std::function<void(const FileLink&)>& open) {
    auto* page = new AllLinksPage(links, open);
    addPage(page);
    prepare(text, OkButton, title, {});
    layout()->setSizeConstraint(QLayout::SetDefaultConstraint);
    page->setFocus();
    answer();
}

void PromptDialog::prepare(const QString& text, int flags, const QString& title,
                           const BoxLook& look) {
    setWindowTitle(title);
    setAccessibleName(title);
    setAccessibleDescription(text);
    drawBalloon(look);
    writeText(text, look);
    setIcon(flags);
    m_balloon->setVisible(!text.isEmpty());
    addCheckBox(look.checkBox);
    setUpButtons(flags, look.captions);
    setDefaultButton(flags);
    m_escapeAnswer = escapeAnswer(flags, look.captions);
    if (look.below)
        standBelow(*look.below);
}

/// As far as the screen has room there.
void PromptDialog::standBelow(const QRect& place) {
    adjustSize();
    const QScreen* screen = QGuiApplication::screenAt(place.center());
    const QRect room = (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    move(qBound(room.left(), place.left(), qMax(room.left(), room.right() - width())),
         qBound(room.top(), place.bottom() + 1, qMax(room.top(), room.bottom() - height())));
}

void PromptDialog::drawBalloon(const BoxLook& look) {
    const QColor background = look.colour == 0 ? paleYellow : toColour(look.colour);
    setBackground(m_balloon, background, look.font ? toColour(look.font->colour) : QColor());
    m_balloon->setAutoFillBackground(false);
}

/// Makes the label as wide as the text needs, up to a line that reads well, and as high.
void PromptDialog::writeText(const QString& text, const BoxLook& look) {
    if (look.font)
        m_text->setFont(toFont(*look.font));
    constexpr int narrowest = 30;
    constexpr int widest = 75;
    m_text->setText(breakable(text));
    m_text->setAccessibleName(text); // as it is, without the places where it may be broken
    m_text->ensurePolished();
    const QFontMetrics metrics(m_text->font());
    const int letter = metrics.averageCharWidth();
    const QRect room(0, 0, widest * letter, QWIDGETSIZE_MAX);
    const int needed =
        metrics.boundingRect(room, Qt::TextWordWrap | Qt::TextExpandTabs, m_text->text()).width();
    const int width = std::max(needed + letter, narrowest * letter);
    m_text->setMinimumSize(width, std::max(m_text->heightForWidth(width), 0));
}

void PromptDialog::setIcon(int flags) {
    static const QHash<int, QStyle::StandardPixmap> icons{
        {CriticalIcon, QStyle::SP_MessageBoxCritical},
        {QuestionIcon, QStyle::SP_MessageBoxQuestion},
        {WarningIcon, QStyle::SP_MessageBoxWarning},
        {InformationIcon, QStyle::SP_MessageBoxInformation},
    };
    const auto icon = icons.constFind(flags & IconMask);
    if (icon == icons.constEnd())
        return;
    const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    m_icon->setPixmap(style()->standardIcon(*icon, nullptr, this).pixmap(size));
    m_icon->show();
}

void PromptDialog::addCheckBox(const QString& caption) {
    m_checkBox->setText(caption);
    m_checkBox->setVisible(!caption.isEmpty());
}

void PromptDialog::addPage(QWidget* page) {
    m_pages->addWidget(page);
}

void PromptDialog::setUpButtons(int flags, const QStringList& ownCaptions) {
    const QList<PromptButton> set = promptButtons(flags);
    QStringList captions;
    for (qsizetype i = 0; i < set.size(); ++i)
        captions += ownCaptions.value(i).isEmpty() ? set[i].caption : ownCaptions[i];
    captions = withAccessKeys(captions);
    for (qsizetype i = 0; i < set.size(); ++i) {
        auto* button = new QPushButton(captions[i]);
        button->setObjectName(u"Cmd(%1)"_s.arg(i));
        connect(button, &QPushButton::clicked, this,
                [this, value = set[i].answer] { press(value); });
        m_buttonRow->addWidget(button);
        m_buttons += button;
    }
    m_buttonRow->addStretch();
}

void PromptDialog::setDefaultButton(int flags) {
    const bool second = defaultAnswer(flags) != promptButtons(flags).constFirst().answer;
    m_default = m_buttons[second ? 1 : 0];
    m_default->setDefault(true);
    m_default->setFocus();
}

void PromptDialog::press(PromptAnswer answer) {
    if (answer != AnswerOk || !m_mayAccept || m_mayAccept())
        done(answer);
}

BoxAnswer PromptDialog::answer() {
    const int pressed = exec();
    return {static_cast<PromptAnswer>(pressed), m_checkBox->isChecked()};
}

void PromptDialog::reject() {
    done(m_escapeAnswer);
}

void PromptDialog::keyPressEvent(QKeyEvent* event) {
    for (QPushButton* button : std::as_const(m_buttons)) {
        const QKeySequence accessKey = QKeySequence::mnemonic(button->text());
        const bool pressed = !accessKey.isEmpty() && event->modifiers() == Qt::NoModifier &&
                             accessKey[0].key() == event->key();
        if (pressed) {
            button->click();
            return;
        }
    }
    QDialog::keyPressEvent(event);
}
