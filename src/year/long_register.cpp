#include "year/long_register.h"

#include "core/prompts.h"

using namespace Qt::StringLiterals;

void warnOfLongRegister(Prompts& prompts, const QString& classCode, qsizetype lessons) {
    prompts.PlainBox(u"The register for "_s + classCode +
                         u" may be limited since the number of registrations required ("_s +
                         QString::number(lessons) +
                         u") exceeds the number of Access Fields allowed per table (255). You may "
                         "wish to remove this class and spit it into 2 seperate classes."_s,
                     WarningIcon, u"Too many fields"_s);
}
