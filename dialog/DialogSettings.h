#pragma once

#include <QString>
#include <QVariant>

#include <optional>

/// The choice "close the dialog once the instances exist", kept in the host's settings store.
namespace created_close_setting {

inline const QString Key = QStringLiteral("IS_CREATED_CLOSE");

/// What is stored, whatever it is.
QVariant read();
/// A stored value as a choice; nothing where it was never saved or is no boolean.
std::optional<bool> choice(const QVariant& stored);
/// Returns what was saved.
QVariant save(bool createdClose);

} // namespace created_close_setting
