#pragma once

#include "core/forms/done_cancel.h" // IWYU pragma: export
