// The scrambling of a body, in bytes a second.
#include "engine/network/mod_Encode.h"

#include <benchmark/benchmark.h>

namespace {

void scramble(benchmark::State& state) {
    QByteArray body(state.range(0), Qt::Uninitialized);
    for (qsizetype i = 0; i < body.size(); ++i) {
        body[i] = static_cast<char>(i * 31);
    }
    for (auto _ : state) {
        QByteArray out = tessel::EncodeBody(body);
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(scramble)->ArgName("characters")->Arg(20)->Arg(200)->Arg(8000);

} // namespace
