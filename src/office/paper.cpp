#include "office/paper.h"

#include <QLocale>

bool usesLetterPaper() {
    return QLocale().measurementSystem() == QLocale::ImperialUSSystem;
}
