// What the dialog remembers from one run of the host to the next.

#include "dialog/DialogSettings.h"

#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/Logging.h"
#include "host/CBusinessDataBase.h"
#include "host/ZelCore.h"
#include "strategy/Traits.h"
#include "ui_AlgoBatchImportParamSetting.h"

#include <QCoreApplication>
#include <QSettings>

namespace created_close_setting {

QVariant read()
{
    return ZelCore::instance()->settings(Key, QString(), QString(), QSettings::UserScope);
}

std::optional<bool> choice(const QVariant& stored)
{
    if (stored.isNull() || !stored.canConvert<bool>()) {
        return std::nullopt;
    }
    return stored.toBool();
}

QVariant save(bool createdClose)
{
    const QVariant value(createdClose);
    ZelCore::instance()->saveSetting(Key, value, QString(), QString(), QSettings::UserScope);
    return value;
}

} // namespace created_close_setting

namespace {

QString accountSettingsPath()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/work/") +
           CBusinessDataBase::GetInstance()->GetLoginAccount() + QStringLiteral("/AlgoMode.ini");
}

} // namespace

/// Each strategy load makes a new settings object; the former ones stay children of the dialog until it goes.
void AlgoBatchImportParamSetting::initSettings()
{
    const QVariant stored = created_close_setting::read();
    qCDebug(lcDialog) << "###: " << Q_FUNC_INFO << "###isCreatedClose: " << stored;
    const std::optional<bool> choice = created_close_setting::choice(stored);
    if (choice) {
        qCDebug(lcDialog) << *choice;
    } else {
        created_close_setting::save(true);
    }
    mIsCreatedClose = choice.value_or(true);
    ui->checkbx_createdClose->setChecked(mIsCreatedClose);

    mStrategyCodeLst = strategy::codesWith(strategy::HongKong);
    mSettings = new QSettings(accountSettingsPath(), QSettings::IniFormat, this);
}

void AlgoBatchImportParamSetting::slotIsCreatedClose()
{
    mIsCreatedClose = ui->checkbx_createdClose->isChecked();
    const QVariant saved = created_close_setting::save(mIsCreatedClose);
    qCDebug(lcDialog) << Q_FUNC_INFO << "save IS_CREATED_CLOSE" << created_close_setting::Key
                      << "varIsCreatedClose: " << saved;
}
