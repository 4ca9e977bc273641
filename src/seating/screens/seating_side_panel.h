#pragma once

#include "core/font_record.h"
#include "seating/desk.h"

#include <QWidget>

#include <array>
#include <optional>

class ColourButton;
class PhotoView;
class QLabel;
class QListWidget;
class QSpinBox;
class Session;

/// What stands beside the classroom: the settings of the desks, the photo of the pupil whose desk
/// is selected, and the pupils of the plan.
class SeatingSidePanel : public QWidget {
    Q_OBJECT

public:
    enum Colour { DeskColour, TeacherColour, ClassroomColour, ColourCount };

    /// Shows what the settings say.
    explicit SeatingSidePanel(Session& session);

    qint32 colour(Colour which) const;
    const FontRecord& deskFont() const { return m_font; }
    /// The size that stands in the boxes, in twips.
    QSize deskSize() const;
    /// That of a new desk.
    QSize defaultDeskSize() const;

    void listPupils(const QList<ListedPupil>& pupils);
    /// Shows the photo of a pupil, and his desk's size in twips.
    void showPupil(const QImage& photo, QSize desk);
    void showNobody();

signals:
    /// Colours or the font are others, and are kept.
    void lookChanged();
    /// All desks shall have the size in the boxes.
    void sizeWanted();
    void pupilChosen(qint64 pupil);

private:
    QWidget* makeSettings();
    QWidget* makeDimensions();
    QWidget* makePreview();
    void ApplyRegistryData();
    void SaveRegistryData();
    void saveSizes();
    void chooseFont();
    QSize twips(qint32 widthUnits, qint32 heightUnits) const;

    Session& m_session;
    std::array<ColourButton*, ColourCount> m_colours{};
    std::array<QSpinBox*, 2> m_units{}; ///< width and height
    FontRecord m_font;
    PhotoView* m_photo = nullptr;
    QLabel* m_size = nullptr;
    QListWidget* m_pupils;
};
