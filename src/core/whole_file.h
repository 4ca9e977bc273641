#pragma once

class QSaveFile;

/// Puts a file in place, whole, or leaves what was there. QSaveFile's own commit() takes no notice
/// when the last bytes find no room on the disk.
bool commitWhole(QSaveFile& file);
