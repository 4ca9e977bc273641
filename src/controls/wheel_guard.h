#pragma once

class QComboBox;

/// Lets the mouse wheel go past a list that drops down, also while it has the focus, so that
/// scrolling over a window chooses nothing else.
void ignoreWheel(QComboBox& list);
