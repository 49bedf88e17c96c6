#include <benchmark/benchmark.h>

#include <QCoreApplication>

// Every benchmark program starts Qt first: the SQL driver plugins load only with an
// application object.
int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
