#pragma once

#include "controls/window_going.h"
#include "core/clock.h"
#include "store/kept_row.h"

#include <QString>

#include <chrono>
#include <functional>
#include <memory>

class Prompts;
class QWidget;
struct Seams;

/// So long after the first key that is not on disk what was typed is written.
inline constexpr std::chrono::seconds SaveDelay{2};

/// How a window writes what is typed in it. Each answers whether what can be written is on disk;
/// the person has been told where it is not.
struct Writer {
    QString what;               ///< for the person: "The daily planning sheet"
    std::function<bool()> save; ///< the boxes go on showing what they show
    /// Before the boxes show something else; as `save` if empty.
    std::function<Leaving()> leave = {};
};

/// Keeps what is typed in a window, so that nobody has to save: it is on disk at the latest two
/// seconds after the first key that is not, and when the focus goes to another window, when another
/// program comes to the front, and when the desktop's session or the program ends. Who goes on
/// typing does not put it off.
///
/// A window that keeps writing has one as its last member, calls `typed` for every change that a
/// person makes, and `end` before its boxes are destroyed. Closing asks mayGo.
class KeptWriting : public BeforeGoing {
    Q_OBJECT

public:
    /// `window` is what has the boxes, a tool window or a page of one; the seams have to outlive
    /// it.
    KeptWriting(QWidget& window, const Seams& seams, Writer writer);

    /// Something has been typed.
    void typed();
    /// Writes at once. Answers whether nothing failed: all that can be written is on disk, or was
    /// given up.
    bool save();
    /// The same before the boxes show something else. Answers whether they may.
    bool leave();
    /// Whether the window may close: everything is written, or the person has chosen to lose what
    /// could not be. From then on it counts as given up until something more is typed. Who was
    /// asked by the writer and stays is not asked again.
    bool mayGo() override;
    /// Writes for the last time and takes no part in anything more.
    void end();

signals:
    /// The focus has come back to the window from elsewhere in the program.
    void cameBack();

private:
    void followFocus(QWidget* from, QWidget* to);
    Leaving saved();
    Leaving write(const std::function<Leaving()>& way);

    QWidget& m_window;
    Clock& m_clock;
    Prompts& m_prompts;
    Writer m_writer;
    std::unique_ptr<Timer> m_due;
    bool m_isGivenUp = false;
    bool m_isWriting = false;
    bool m_hasEnded = false;
};
