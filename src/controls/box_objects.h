#pragma once

class RichTextBox;
class Session;

namespace richtext {
struct EmbeddedObject;
}

/// What can be done with the objects in a rich text box, whoever shows it.

/// Puts an object in the place of what is selected.
void insertObjectInBox(RichTextBox& box, const richtext::EmbeddedObject& object);

/// Shows what the object at the box's caret holds: an equation in its editor, a packaged file in
/// the program that the desktop has for it. In a box that can only be read an equation stays as it
/// is.
void openObjectOfBox(Session& session, RichTextBox& box);
