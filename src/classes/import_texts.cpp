#include "classes/import_texts.h"

#include "core/prompts.h"

using namespace Qt::StringLiterals;

namespace {

/// The beginning of a text; no character is divided.
QString beginningOf(const QString& text, qsizetype size) {
    const bool divides = text.at(size).isLowSurrogate() && text.at(size - 1).isHighSurrogate();
    return text.left(divides ? size - 1 : size);
}

} // namespace

dao::Value ImportTexts::fitted(const QString& text, const dao::Field& field, const QString& place) {
    if (text.isEmpty() && !field.AllowZeroLength)
        return {};
    if (field.Type != dao::DataType::Text || text.size() <= field.Size)
        return text;
    if (!m_cut.contains(place))
        m_cut += place;
    return beginningOf(text, field.Size);
}

dao::Value ImportTexts::fitted(const dao::Value& value, const dao::Field& field,
                               const QString& place) {
    const bool isText = value.isText() || (field.Type == dao::DataType::Text && !value.isNull());
    return isText ? fitted(value.toText(), field, place) : value;
}

void ImportTexts::tellCut(Prompts& prompts, const QString& title, const QString& rows) const {
    constexpr qsizetype named = 100;
    if (m_cut.isEmpty())
        return;
    QString places = m_cut.mid(0, named).join(u", "_s);
    if (m_cut.size() > named)
        places += u" and %1 more"_s.arg(m_cut.size() - named);
    prompts.PlainBox(u"Some texts were too long for their fields and have been cut. "_s + rows +
                         u": "_s + places,
                     OkButton | InformationIcon, title);
}
