#include "embedded_host/EmbeddedHost.h"

#include "embedded_host/quotes/QuoteBoard.h"
#include "embedded_host/settings/SettingsStore.h"
#include "embedded_host/skin/SkinService.h"

#include <utility>

namespace {

EmbeddedHost* newestHost = nullptr;

QuoteBoard::Options boardOptions(const EmbeddedHost::Options& options)
{
    QuoteBoard::Options board;
    board.moving = options.quotes == EmbeddedHost::QuoteMode::Moving;
    board.seed = options.quoteSeed;
    return board;
}

} // namespace

EmbeddedHost::EmbeddedHost(ReferenceData referenceData) : EmbeddedHost(std::move(referenceData), Options()) {}

EmbeddedHost::EmbeddedHost(ReferenceData referenceData, Options options)
    : mPrevious(newestHost), mReferenceData(std::move(referenceData)), mOptions(std::move(options)),
      mQuotes(std::make_unique<QuoteBoard>(mReferenceData, boardOptions(mOptions))),
      mSettings(std::make_unique<SettingsStore>(mOptions.home)), mSkins(std::make_unique<SkinService>())
{
    newestHost = this;
}

EmbeddedHost::~EmbeddedHost()
{
    // Hosts normally go in the reverse order of their coming; one that goes earlier leaves the chain whole.
    EmbeddedHost** link = &newestHost;
    while (*link != this) {
        link = &(*link)->mPrevious;
    }
    *link = mPrevious;
}

EmbeddedHost& EmbeddedHost::current()
{
    if (!newestHost) {
        qFatal(
            "EmbeddedHost::current: no host lives; construct an EmbeddedHost before anything that asks it");
    }
    return *newestHost;
}
