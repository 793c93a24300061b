// How many files this process has open. The sources are chosen by platform.
#ifndef QUORVEX_TESTS_FAULTS_OPEN_FILES_H_
#define QUORVEX_TESTS_FAULTS_OPEN_FILES_H_

namespace quorvex::tests {

int OpenFileCount();

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_FAULTS_OPEN_FILES_H_
