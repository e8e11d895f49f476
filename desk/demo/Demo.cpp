#include "desk/demo/Demo.h"

#include "desk/demo/Story.h"
#include "words/Words.h"

namespace demo {

namespace {

constexpr int NotFilled = 1;
constexpr int NotBegun = 2;

int complain(QIODevice& err, const QString& error)
{
    err.write(error.toUtf8() + '\n');
    return NotBegun;
}

} // namespace

int runHeadless(const Options& options, const std::function<bool()>& isAskedToEnd, QIODevice& out,
                QIODevice& err)
{
    Stage stage(options);
    const Outcome<void> opened = stage.open();
    if (!opened.ok()) {
        return complain(err, opened.error);
    }
    Story story(*stage.ledger(), out);
    story.say(Words::tr("模拟对手方在 127.0.0.1:%1，时钟加速 %2 倍；网关已登录 FIX.4.4:DESK->BROKER")
                  .arg(stage.port())
                  .arg(stage.pace()));
    const Outcome<qint64> batch = stage.importOrders();
    if (!batch.ok()) {
        return complain(err, batch.error);
    }
    story.say(Words::tr("已导入 demo.csv，批次 %1，全部启动").arg(batch.value));
    return story.follow(batch.value, isAskedToEnd) ? 0 : NotFilled;
}

std::unique_ptr<Stage> openStage(const Options& options, QString& error)
{
    auto stage = std::make_unique<Stage>(options);
    error = stage->open().error;
    if (error.isEmpty()) {
        error = stage->importOrders().error;
    }
    return error.isEmpty() ? std::move(stage) : nullptr;
}

} // namespace demo
