#include "office/plain_cell.h"

#include "richtext/plain_text.h"

QString plainCellText(const QString& rtf) {
    return richtext::plainText(rtf).remove(QChar(QChar::ObjectReplacementCharacter));
}
