#pragma once

#include "embedded_host/EmbeddedHost.h"

/// A host without reference data: the widgets need none.
struct TestHost : EmbeddedHost {
    TestHost() : EmbeddedHost(ReferenceData(ReferenceTables())) {}
};
