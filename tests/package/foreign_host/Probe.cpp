#include "dialog/AlgoBatchImportParamSetting.h"

#ifndef FOREIGN_HOST
#error "the dialog's headers found the host/ of the library in place of the client's"
#endif
