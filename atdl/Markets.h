#pragma once

#include "atdl/Loss.h"
#include "atdl/XmlTree.h"

#include <QList>
#include <QStringList>

#include <optional>

/// Where a strategy is offered.
namespace atdl {

/// A market of the desk under the standard's identifiers.
struct MarketName {
    QString exchange; ///< as the desk writes it: SH
    QString mic;      ///< ISO 10383: XSHG
    QString country;  ///< ISO 3166: CN
};

const QList<MarketName>& marketNames();

/// Exchanges on which Regions and Markets of the strategy let it trade; nothing where it names none. Markets
/// that the desk does not know are losses.
std::optional<QStringList> exchangesOf(const XmlElement& strategy, LossBook& losses);

} // namespace atdl
