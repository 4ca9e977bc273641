#include "core/whole_file.h"

#include <QSaveFile>

bool commitWhole(QSaveFile& file) {
    return file.flush() && file.commit();
}
