#include "BuildError.h"
#include "RulesDbBuilder.h"

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    QTextStream err(stderr);
    if (args.size() != 3) {
        err << "usage: hoard-rulesdb-pg SOURCE_DIR \"host=... dbname=... user=...\"\n";
        return 2;
    }
    try {
        RulesDbBuilder().buildPostgres(args[1], args[2]);
    } catch (const BuildError& error) {
        err << error.text() << '\n';
        return 1;
    }
    return 0;
}
