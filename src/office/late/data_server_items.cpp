#include "office/late/data_server_items.h"

using namespace Qt::StringLiterals;

namespace {

/// Texts come with the line breaks of all kinds of programs.
QString textOf(const char* utf8) {
    return QString::fromUtf8(utf8).replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
}

/// A memo may have several, as parts of its text.
QString descriptionOf(ICalComponent* item) {
    QStringList parts;
    for (GOwned<ICalProperty> part(
             i_cal_component_get_first_property(item, I_CAL_DESCRIPTION_PROPERTY));
         part; part.reset(i_cal_component_get_next_property(item, I_CAL_DESCRIPTION_PROPERTY)))
        parts += textOf(i_cal_property_get_description(part.get()));
    return parts.join(u"\n"_s);
}

/// The zone of a time by the name that the item gives it; null for none that is known.
ICalTimezone* zoneOf(ICalProperty* property, const ZoneOfCalendar& zoneOfCalendar) {
    const GOwned<ICalParameter> named(
        i_cal_property_get_first_parameter(property, I_CAL_TZID_PARAMETER));
    const char* name = named ? i_cal_parameter_get_tzid(named.get()) : nullptr;
    if (!name)
        return nullptr;
    ICalTimezone* zone = i_cal_timezone_get_builtin_timezone_from_tzid(name);
    if (!zone)
        zone = i_cal_timezone_get_builtin_timezone(name);
    return zone ? zone : zoneOfCalendar(name);
}

/// In the computer's own time; invalid for none.
QDateTime startOf(ICalComponent* item, const ZoneOfCalendar& zoneOfCalendar) {
    const GOwned<ICalProperty> property(
        i_cal_component_get_first_property(item, I_CAL_DTSTART_PROPERTY));
    const GOwned<ICalTime> start(property ? i_cal_property_get_dtstart(property.get()) : nullptr);
    if (!start || i_cal_time_is_null_time(start.get()))
        return {};
    const QDate day(i_cal_time_get_year(start.get()), i_cal_time_get_month(start.get()),
                    i_cal_time_get_day(start.get()));
    if (i_cal_time_is_date(start.get()))
        return day.startOfDay();
    const QTime time(i_cal_time_get_hour(start.get()), i_cal_time_get_minute(start.get()),
                     i_cal_time_get_second(start.get()));
    if (i_cal_time_is_utc(start.get()))
        return QDateTime(day, time, Qt::UTC).toLocalTime();
    ICalTimezone* zone = zoneOf(property.get(), zoneOfCalendar);
    return zone ? QDateTime::fromSecsSinceEpoch(i_cal_time_as_timet_with_zone(start.get(), zone))
                : QDateTime(day, time);
}

QString fieldOf(EContact* contact, EContactField field) {
    return textOf(static_cast<const char*>(e_contact_get_const(contact, field)));
}

struct PostalAddress {
    QString lines;
    QString postalCode;
};

PostalAddress addressOf(EContact* contact, EContactField field) {
    const auto free = [](EContactAddress* address) { e_contact_address_free(address); };
    const std::unique_ptr<EContactAddress, decltype(free)> address(
        static_cast<EContactAddress*>(e_contact_get(contact, field)), free);
    if (!address)
        return {};
    QStringList lines;
    for (const char* part : {address->po, address->ext, address->street, address->locality,
                             address->region, address->country}) {
        if (part && *part)
            lines += textOf(part);
    }
    return {lines.join(u'\n'), textOf(address->code)};
}

} // namespace

QString noteText(ICalComponent* memo) {
    const QString summary = textOf(i_cal_component_get_summary(memo));
    const QString description = descriptionOf(memo);
    if (summary.isEmpty() || description.startsWith(summary))
        return description;
    return description.isEmpty() ? summary : summary + u'\n' + description;
}

GOwned<ICalComponent> noteOf(const QString& text) {
    GOwned<ICalComponent> memo(i_cal_component_new_vjournal());
    const QString summary = text.section(u'\n', 0, 0, QString::SectionSkipEmpty);
    i_cal_component_set_summary(memo.get(), summary.toUtf8().constData());
    i_cal_component_set_description(memo.get(), text.toUtf8().constData());
    return memo;
}

std::optional<MailEvent> eventOf(ICalComponent* item, const ZoneOfCalendar& zoneOfCalendar) {
    const QDateTime start = startOf(item, zoneOfCalendar);
    if (!start.isValid() || e_cal_util_component_is_instance(item))
        return std::nullopt;
    return MailEvent{.Start = start,
                     .IsRecurring = e_cal_util_component_has_recurrences(item) != 0,
                     .Subject = textOf(i_cal_component_get_summary(item)),
                     .Body = descriptionOf(item)};
}

std::optional<MailContact> contactOf(EContact* contact) {
    if (e_contact_get(contact, E_CONTACT_IS_LIST))
        return std::nullopt;
    const PostalAddress home = addressOf(contact, E_CONTACT_ADDRESS_HOME);
    const PostalAddress work = addressOf(contact, E_CONTACT_ADDRESS_WORK);
    return MailContact{.LastName = fieldOf(contact, E_CONTACT_FAMILY_NAME),
                       .FirstName = fieldOf(contact, E_CONTACT_GIVEN_NAME),
                       .Email1Address = fieldOf(contact, E_CONTACT_EMAIL_1),
                       .HomeTelephoneNumber = fieldOf(contact, E_CONTACT_PHONE_HOME),
                       .MobileTelephoneNumber = fieldOf(contact, E_CONTACT_PHONE_MOBILE),
                       .HomeFaxNumber = fieldOf(contact, E_CONTACT_PHONE_HOME_FAX),
                       .HomeAddress = home.lines,
                       .HomeAddressPostalCode = home.postalCode,
                       .BusinessTelephoneNumber = fieldOf(contact, E_CONTACT_PHONE_BUSINESS),
                       .BusinessAddress = work.lines,
                       .BusinessFaxNumber = fieldOf(contact, E_CONTACT_PHONE_BUSINESS_FAX),
                       .BusinessAddressPostalCode = work.postalCode,
                       .Email2Address = fieldOf(contact, E_CONTACT_EMAIL_2)};
}
