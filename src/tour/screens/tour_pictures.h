#pragma once

#include <QString>

#include <functional>

class QWidget;

/// The pictures of a tour, `<name>.png` in one folder. A picture that can't be written is told on
/// standard error and remembered.
class TourPictures {
public:
    explicit TourPictures(const QString& folder);

    /// The window as it stands now, with its caption above it.
    void save(QWidget& window, const QString& name);
    /// The window that `ask` shows and waits for, which is then closed unanswered.
    void saveAsked(const QString& name, const std::function<void()>& ask);
    /// Whether all of them could be written.
    bool areWhole() const { return m_areWhole; }

private:
    QString m_folder;
    bool m_areWhole = true;
};
