// Reads any bytes as a Jet file, here and not in a child process as readJetFile does, so that the
// fuzzer sees the ways that they take. What it finds to crash inside libmdb does no harm to the
// program, but is worth a check in front of that call. Start it on copies of tests/data/jet/*.mdb.

#include "store/engine/error.h"
#include "store/engine/jet_content.h"
#include "store/engine/jet_wire.h"

#include <cstdlib>

namespace {

template<typename Action>
void expectNothingButDamage(Action action) {
    try {
        action();
    } catch (const dao::EngineError& error) {
        if (error.number() != dao::DamagedDatabase)
            std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    expectNothingButDamage([&] { dao::readJetContent(bytes); });
    expectNothingButDamage([&] { dao::jetPassword(bytes); });
    expectNothingButDamage([&] { dao::unpackContent(bytes); });
    return 0;
}
