#pragma once

/// The toolkit keeps a file of its own for all its programs, with the folders and files that its
/// dialogs have shown last. Sees to it that the person alone can read it, for the start of the
/// program: what is not there yet is made, for otherwise the toolkit would.
void KeepToolkitSettingsPrivate();
