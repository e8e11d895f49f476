#include "dialog/Logging.h"

Q_LOGGING_CATEGORY(lcDialog, "algo.dialog")
Q_LOGGING_CATEGORY(lcSchema, "algo.schema")
Q_LOGGING_CATEGORY(lcImport, "algo.import")
Q_LOGGING_CATEGORY(lcValidation, "algo.validation")
Q_LOGGING_CATEGORY(lcAmounts, "algo.amounts")
