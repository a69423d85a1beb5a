// The system's numbers of failures, for tests that make operations fail. Defined in tests/native.
#pragma once

extern const int SYSTEM_DISK_FULL;
extern const int SYSTEM_ACCESS_DENIED;
