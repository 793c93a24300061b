// How every reader of pictures refuses a file.
#ifndef QUORVEX_TOOLS_PICTURES_READ_FAILURE_H_
#define QUORVEX_TOOLS_PICTURES_READ_FAILURE_H_

#include <fmt/format.h>

#include <string>

#include "tools/errors.h"

namespace quorvex::tools {

// Throws InputError: one sentence with `name`, the file in question.
[[noreturn]] inline void ThrowCannotRead(const std::string& name, const std::string& reason) {
  throw InputError(fmt::format("cannot read {}: {}", name, reason));
}

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_READ_FAILURE_H_
