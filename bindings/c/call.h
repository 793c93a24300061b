// How every function of the C interface runs: what goes wrong inside becomes a code and a sentence.
#ifndef QUORVEX_BINDINGS_C_CALL_H_
#define QUORVEX_BINDINGS_C_CALL_H_

#include <exception>
#include <new>
#include <stdexcept>
#include <string>

#include "interface/quorvex_c.h"

namespace quorvex::bindings {

// Thrown inside only.
class Failure : public std::runtime_error {
 public:
  Failure(quorvex_error code, const std::string& detail)
      : std::runtime_error(detail), code_(code) {}

  quorvex_error Code() const { return code_; }

 private:
  quorvex_error code_;
};

// The sentence that quorvex_error_detail gives from now on to this thread; cut to what fits.
void SetDetail(const char* detail) noexcept;

// Runs the work of a function: a callable without arguments and result.
template <typename Work>
quorvex_error Run(const Work& work) noexcept {
  try {
    SetDetail("");
    work();
    return QUORVEX_OK;
  } catch (const Failure& failure) {
    SetDetail(failure.what());
    return failure.Code();
  } catch (const std::bad_alloc&) {
    SetDetail("memory ran out");
    return QUORVEX_ERROR_MEMORY;
  } catch (const std::length_error&) {  // more than any list holds
    SetDetail("memory ran out");
    return QUORVEX_ERROR_MEMORY;
  } catch (const std::exception& exception) {
    SetDetail(exception.what());
  } catch (...) {
    SetDetail("an exception of an unknown kind");
  }
  return QUORVEX_ERROR_INTERNAL;
}

// "image: expected a pointer, given NULL"
void RequirePointer(const void* pointer, const char* name);

// "rows: expected 1 to 32768, given 0"
void RequireRange(int value, int least, int most, const char* name);

// Pixels, sizes of at least `leastSize` and a stride that leaves rows apart.
void RequireImage(const quorvex_image* image, int leastSize);

}  // namespace quorvex::bindings

#endif  // QUORVEX_BINDINGS_C_CALL_H_
