#pragma once

#include "help/help.h"

#include <QSet>
#include <QTextBrowser>
#include <QUrl>

/// Shows one page of the help at a time, with its pictures and links, and remembers the way here.
/// Pictures are no wider than the view. The keys of a web browser hold: Alt+Left and Alt+Right go
/// back and forward, Tab goes from link to link.
class HelpPageView : public QTextBrowser {
    Q_OBJECT

public:
    /// The book has to outlive the view.
    explicit HelpPageView(const HelpBook& book, QWidget* parent = nullptr);

    /// Shows a page by its place in the book. The page that shows already stays where it is.
    void showPage(int page);
    /// The place of the page that shows; -1 before the first.
    int page() const { return m_page; }
    /// Marks every word that begins with one of these, on this page and on those that follow.
    void setMarkedWords(const QString& words);
    /// Makes the text larger by so many steps, smaller by a negative number.
    void zoom(int steps);
    void resetZoom() { zoom(-m_zoom); }

signals:
    void pageShown(int page);

protected:
    QVariant loadResource(int type, const QUrl& address) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void noteSource(const QUrl& address);
    void dressLinks();
    void dressTables();
    QImage fittedPicture(const QString& name) const;
    void markWords();

    const HelpBook& m_book;
    int m_page = -1;
    int m_zoom = 0;
    QString m_markedWords;
    QSet<QUrl> m_pictures; ///< those of the page that shows
};
