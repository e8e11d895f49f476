#pragma once

#include "gateway/messages/Message.h"
#include "gateway/profile/Profile.h"

#include <QByteArray>
#include <QString>

/// A message as a csv file.
namespace gateway {

/// A header and a row; of an order of two legs a row each, with what is the order's in both. A column is a
/// field under its name (FieldNames.h), a strategy parameter of the group under its own.
///
///     MsgType,ClOrdID,Account,…,TargetStrategy,MaxPctVolume
///     D,NW66TGW5HBELBA4MNSSDJLTPKQ-7,80010001,…,1001,0.15
QByteArray sheetOf(const Message& message);

/// "NW66TGW5HBELBA4MNSSDJLTPKQ-7.csv" of an order; a cancel has its own identifier, a question its number
/// behind the order's. Empty where the identifier is none for a file's name.
QString sheetName(const Message& message);

/// Strategy parameters that would stand in a field's column, a line each with its path; empty: none.
QString clashesIn(const Profile& profile);

} // namespace gateway
