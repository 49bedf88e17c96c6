// libFuzzer's entry for one reader; HOARD_FUZZ_TARGET names it at build time.
#include "FuzzTargets.h"

#include <QCoreApplication>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    // Paths and the class registry expect an application object, as in the programs.
    static QCoreApplication app(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    return hoardfuzz::HOARD_FUZZ_TARGET(data, size);
}
