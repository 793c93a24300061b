// One input of an engine as a case of the differential tests that the program links: stages of the
// library against their plain forms, with the engine's numbers in the place of a seed's.
#ifndef QUORVEX_FUZZ_RUN_CASE_H_
#define QUORVEX_FUZZ_RUN_CASE_H_

#include <cstddef>
#include <cstdint>

namespace quorvex::fuzz {

// The first byte chooses among the cases in the order of their names, two are the seed of what the
// others do not reach. Ends the process when something differs.
void RunCase(const std::uint8_t* bytes, std::size_t size);

}  // namespace quorvex::fuzz

#endif  // QUORVEX_FUZZ_RUN_CASE_H_
