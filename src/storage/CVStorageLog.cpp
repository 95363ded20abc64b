#include "storage/CVStorageLog.h"

Q_LOGGING_CATEGORY(lcStorage, "corvella.storage")
