#include "gateway/session/EngineSettings.h"

namespace gateway {

namespace {

/// Every session of the settings, each with its own dictionary of values.
template <typename Function> void forEach(FIX::SessionSettings& settings, Function function)
{
    FIX::SessionSettings changed;
    changed.set(settings.get());
    for (const FIX::SessionID& session : settings.getSessions()) {
        FIX::Dictionary values = settings.get(session);
        function(session, values);
        changed.set(session, values);
    }
    settings = changed;
}

void setUnlessThere(FIX::Dictionary& values, const char* key, const char* value)
{
    if (!values.has(key)) {
        values.setString(key, value);
    }
}

/// A report is worth more than its form: what nobody reads is not held against it.
void bring(const std::string& folder, const FIX::SessionID& session, FIX::Dictionary& values)
{
    values.setString(FIX::USE_DATA_DICTIONARY, "Y");
    values.setString(FIX::PERSIST_MESSAGES, "Y");
    if (session.isFIXT()) {
        setUnlessThere(values, FIX::DEFAULT_APPLVERID, "FIX.5.0SP2");
        values.setString(FIX::TRANSPORT_DATA_DICTIONARY, folder + "/FIXT11.xml");
        values.setString(FIX::APP_DATA_DICTIONARY, folder + "/FIX50SP2.xml");
    } else {
        values.setString(FIX::DATA_DICTIONARY, folder + "/FIX44.xml");
    }
    setUnlessThere(values, FIX::VALIDATE_USER_DEFINED_FIELDS, "N");
    setUnlessThere(values, FIX::ALLOW_UNKNOWN_MSG_FIELDS, "Y");
    setUnlessThere(values, FIX::VALIDATE_FIELDS_HAVE_VALUES, "N");
    setUnlessThere(values, FIX::VALIDATE_FIELDS_OUT_OF_ORDER, "N");
}

std::string faultOf(const FIX::SessionSettings& settings, Engine::Role role)
{
    const std::set<FIX::SessionID> sessions = settings.getSessions();
    const char* wanted = role == Engine::Role::Initiator ? "initiator" : "acceptor";
    if (sessions.empty() || (role == Engine::Role::Initiator && sessions.size() > 1)) {
        return sessions.empty() ? "no [SESSION]" : "more than one [SESSION]";
    }
    for (const FIX::SessionID& session : sessions) {
        const std::string version = session.getBeginString().getString();
        if (version != "FIX.4.4" && version != "FIXT.1.1") {
            return "BeginString is FIX.4.4 or FIXT.1.1, not " + version;
        }
        if (settingOf(settings, session, FIX::CONNECTION_TYPE) != wanted) {
            return std::string("ConnectionType is not ") + wanted;
        }
    }
    return std::string();
}

} // namespace

std::string settingOf(const FIX::SessionSettings& settings, const FIX::SessionID& session, const char* key)
{
    const FIX::Dictionary& values = settings.get(session);
    return values.has(key) ? values.getString(key) : std::string();
}

bool loadSettings(const Engine::Options& options, FIX::SessionSettings& settings, std::string& error)
{
    try {
        settings = FIX::SessionSettings(options.settingsFile);
        error = faultOf(settings, options.role);
        if (error.empty()) {
            forEach(settings, [&](const FIX::SessionID& session, FIX::Dictionary& values) {
                bring(options.dictionaryFolder, session, values);
            });
        }
    } catch (const std::exception& exception) {
        error = exception.what();
    }
    return error.empty();
}

} // namespace gateway
