#pragma once

#include "embedded_host/HostJournal.h"
#include "embedded_host/OfferedTable.h"
#include "embedded_host/reference_data/ReferenceData.h"
#include "embedded_host/ScreenPrompts.h"

#include <QString>

#include <memory>

class QuoteBoard;
class SettingsStore;
class SkinService;

/// A host on small ground. One object owns the stores; the service classes of host/ ask the current one.
/// Objects nest: a new one is current until it is destroyed, then the one before it is again.
///
///     EmbeddedHost host(ReferenceData(tables));          // in memory, quotes that stand still
///     AlgoBatchImportParamSetting dialog(nullptr, SelectableStrategy);
class EmbeddedHost {
public:
    enum class QuoteMode {
        Still,  ///< snapshots are there as soon as a subscription returns, and never change
        Moving, ///< snapshots arrive from a thread of their own within 300 ms and move around their start
    };

    struct Options {
        QString home; ///< folder of the settings; empty: settings live in memory
        QString loginAccount = QStringLiteral("trader");
        QuoteMode quotes = QuoteMode::Still;
        quint32 quoteSeed = 0; ///< of moving quotes; 0: another one every time
    };

    explicit EmbeddedHost(ReferenceData referenceData);
    EmbeddedHost(ReferenceData referenceData, Options options);
    virtual ~EmbeddedHost();
    EmbeddedHost(const EmbeddedHost&) = delete;
    EmbeddedHost& operator=(const EmbeddedHost&) = delete;

    /// The newest living host; there must be one.
    static EmbeddedHost& current();

    const ReferenceData& referenceData() const { return mReferenceData; }
    const Options& options() const { return mOptions; }
    QuoteBoard& quotes() { return *mQuotes; }
    SettingsStore& settings() { return *mSettings; }
    SkinService& skins() { return *mSkins; }
    HostJournal& journal() { return mJournal; }
    /// What the next import of a file may take instead of reading it.
    OfferedTable& offeredTable() { return mOfferedTable; }

    /// Who answers questions; not owned. Null (and at first): dialogs on the screen.
    void setPrompts(UserPrompts* prompts) { mPrompts = prompts ? prompts : &mScreen; }
    /// Never null.
    UserPrompts* prompts() const { return mPrompts; }

private:
    EmbeddedHost* mPrevious;
    ReferenceData mReferenceData;
    Options mOptions;
    std::unique_ptr<QuoteBoard> mQuotes;
    std::unique_ptr<SettingsStore> mSettings;
    std::unique_ptr<SkinService> mSkins;
    HostJournal mJournal;
    OfferedTable mOfferedTable;
    ScreenPrompts mScreen;
    UserPrompts* mPrompts = &mScreen;
};
