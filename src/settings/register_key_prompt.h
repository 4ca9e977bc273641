#pragma once

#include <QString>
#include <QStringList>

class Prompts;

/// Asks for a mark of the register and its meaning. Answers the row "L=Late"; empty where none was
/// given, or was refused, which is told.
QString askRegisterKey(Prompts& prompts, const QStringList& present);
