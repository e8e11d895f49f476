#pragma once

#include "embedded_host/EmbeddedHost.h"

#include <QVariant>
#include <QVariantList>
#include <QWidget>

#include <type_traits>

/// How the service classes note a call in the current host's journal.
namespace services {

/// A widget stands in the journal by its name, or where it has none by its class.
inline QVariant variantOf(QWidget* widget)
{
    if (!widget) {
        return QString();
    }
    return widget->objectName().isEmpty() ? QString::fromLatin1(widget->metaObject()->className())
                                          : widget->objectName();
}

template <typename Argument> QVariant variantOf(const Argument& argument)
{
    if constexpr (std::is_enum_v<Argument>) {
        return static_cast<int>(argument);
    } else {
        return QVariant::fromValue(argument);
    }
}

/// Notes the call while the host records; otherwise nothing is built, not even the operation's name as a
/// QString.
template <typename... Arguments> void record(const char* operation, const Arguments&... arguments)
{
    HostJournal& journal = EmbeddedHost::current().journal();
    if (journal.isRecording()) {
        journal.add(operation, QVariantList{variantOf(arguments)...});
    }
}

inline const ReferenceData& referenceData()
{
    return EmbeddedHost::current().referenceData();
}

} // namespace services
