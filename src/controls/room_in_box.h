#pragma once

#include <QString>

class Prompts;
class RichTextBox;

/// Boxes that can write back only so much take no file and no picture that would be too much.

/// Tells that something ("The file") does not fit into the box, by so many characters.
void tellNoRoom(Prompts& prompts, const RichTextBox& box, const QString& what, qsizetype excess);

/// Tells the same of a rich text that was to take the place of the box's selection. Where it has
/// pictures that can be scaled down until it fits, the person is asked whether to do so, and it is
/// put in.
void offerSmallerPictures(Prompts& prompts, RichTextBox& box, const QString& rtf);
