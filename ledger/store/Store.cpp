#include "ledger/store/PostgresStore.h"
#include "ledger/store/SqliteStore.h"

namespace ledger {

std::unique_ptr<Store> Store::make(const Address& address, const Settings& settings)
{
    if (address.kind == Address::Kind::Server) {
        return std::make_unique<PostgresStore>(address, settings);
    }
    return std::make_unique<SqliteStore>(address.path, settings);
}

} // namespace ledger
