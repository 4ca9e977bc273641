#pragma once

#include <QLineEdit>

/// A line to type in that takes only some characters. What else is typed or pasted does not stay,
/// and `refused` tells of it; what is longer than the line may be is refused with a beep.
class RestrictedEdit : public QLineEdit {
    Q_OBJECT

public:
    using Accepts = bool (*)(char32_t character);
    enum class Letters { AsTyped, Capitals };

    /// `name` says in words what the line is for. With Capitals small letters become capitals.
    RestrictedEdit(const QString& name, Accepts accepts, Letters letters = Letters::AsTyped,
                   QWidget* parent = nullptr);

signals:
    void refused();

private:
    void restrict(const QString& typed);
    QString acceptedPart(const QString& text) const;

    Accepts m_accepts;
    Letters m_letters;
};
