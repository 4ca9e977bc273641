#pragma once

#include <QMdiArea>

class Session;

/// The area of the tool windows, shaded from one colour of the settings to another.
class MdiBackground : public QMdiArea {
    Q_OBJECT

public:
    explicit MdiBackground(Session& session, QWidget* parent = nullptr);

    /// Paints the shading anew, for the present size and settings.
    void ShadeMDI();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    Session& m_session;
};
