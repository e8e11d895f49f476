#pragma once

#include "desk/demo/Stage.h"

#include <QIODevice>

#include <functional>

namespace demo {

/// Tells the story as text on `out`, and ends by itself: 0 where every order was filled, 1 where not, 2 where
/// it could not begin, for the reason on `err`.
int runHeadless(const Options& options, const std::function<bool()>& isAskedToEnd, QIODevice& out,
                QIODevice& err);

/// The same steps for a window: a stage on which orders are on their way; null with a sentence in `error`.
std::unique_ptr<Stage> openStage(const Options& options, QString& error);

} // namespace demo
