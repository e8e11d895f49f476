#include "ledger/store/SqliteStore.h"

namespace ledger {

std::unique_ptr<Store> Store::make(const Address& address, const Settings& settings)
{
    if (address.kind == Address::Kind::Server) {
        return nullptr;
    }
    return std::make_unique<SqliteStore>(address.path, settings);
}

} // namespace ledger
