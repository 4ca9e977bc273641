#pragma once

#include "core/progress.h"

#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <memory>

class QLabel;
class QProgressBar;

/// The window of long work: a bar and two lines. It can't be closed by the person, and no other
/// window takes input while it stands.
class ProgressDialog : public QWidget {
    Q_OBJECT

public:
    explicit ProgressDialog(QWidget* parent = nullptr);
    void showStep(int percent, const QString& line1, const QString& line2);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QProgressBar* m_bar;
    QLabel* m_line1;
    QLabel* m_line2;
};

/// Progress as a window, with the pointer that says to wait. Work within work shares the window of
/// the outermost; its title is the innermost one's. Input that the person gives meanwhile is
/// dropped: it reaches nothing half done, nor what stands there afterwards.
class DesktopProgress : public Progress {
public:
    explicit DesktopProgress(QWidget* mainWindow = nullptr) : m_mainWindow(mainWindow) {}
    ~DesktopProgress() override;
    void SetMainWindow(QWidget* mainWindow) { m_mainWindow = mainWindow; }

    void open(const QString& title) override;
    void UpdateProgress(int percent, const QString& line1, const QString& line2) override;
    void close() override;

private:
    QPointer<QWidget> m_mainWindow;
    std::unique_ptr<ProgressDialog> m_window;
    QStringList m_titles; ///< of the work that is under way, the innermost last
};
