#include "store/table_names.h"

#include "store/engine/names.h"

using namespace Qt::StringLiterals;

namespace {

std::optional<QString> behindPrefix(const QString& table, const QString& prefix) {
    if (table.size() <= prefix.size() || !dao::sameName(table.left(prefix.size()), prefix))
        return std::nullopt;
    return table.mid(prefix.size());
}

QString planTable(const QString& prefix, const QString& classCode, const QString& room) {
    return room.isEmpty() ? prefix + classCode : prefix + room + u'_' + classCode;
}

} // namespace

QString classTable(const QString& classCode) {
    return ClassPrefix + classCode;
}

QString registerTable(const QString& classCode) {
    return RegisterPrefix + classCode;
}

QString marksTable(const QString& classCode) {
    return MarksPrefix + classCode;
}

QString seatingPlanTable(const QString& classCode, const QString& room) {
    return planTable(SeatingPlanPrefix, classCode, room);
}

QString seatingPlanExtraTable(const QString& classCode, const QString& room) {
    return planTable(SeatingPlanExtraPrefix, classCode, room);
}

QString registerRelation(const QString& classCode) {
    return u"CReg_"_s + classCode;
}

QString marksRelation(const QString& classCode) {
    return u"CMark_"_s + classCode;
}

std::optional<QString> classOfClassTable(const QString& table) {
    if (dao::sameName(table, ClassTempTable))
        return std::nullopt;
    return behindPrefix(table, ClassPrefix);
}

std::optional<QString> classOfRegisterTable(const QString& table) {
    return behindPrefix(table, RegisterPrefix);
}

std::optional<QString> classOfMarksTable(const QString& table) {
    return behindPrefix(table, MarksPrefix);
}

std::optional<QString> extraOfSeatingPlan(const QString& table) {
    const std::optional<QString> rest = behindPrefix(table, SeatingPlanPrefix);
    if (!rest)
        return std::nullopt;
    return SeatingPlanExtraPrefix + *rest;
}

std::optional<QString> roomOfSeatingPlan(const QString& table, const QString& classCode) {
    const std::optional<QString> rest = behindPrefix(table, SeatingPlanPrefix);
    if (!rest || !dao::sameName(rest->right(classCode.size()), classCode))
        return std::nullopt;
    if (rest->size() == classCode.size())
        return QString();
    const qsizetype underline = rest->indexOf(u'_');
    if (underline < 0)
        return std::nullopt;
    return rest->left(underline);
}
