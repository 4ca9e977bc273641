#pragma once

#include <QHeaderView>

/// The heads of a register. A lesson's column is as narrow as its mark, so its date is written
/// upwards; the current lesson's stands out.
class RegisterHeader : public QHeaderView {
    Q_OBJECT

public:
    explicit RegisterHeader(QWidget* parent = nullptr);

    /// The section of the current lesson; -1 for none.
    void setCurrentLesson(int section);
    QSize sizeHint() const override;

protected:
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;

private:
    int m_currentLesson = -1;
};
