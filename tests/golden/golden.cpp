// Prints a hash of what each operation gives for the same numbers: equal everywhere, or numbers differ somewhere.
//   golden          prints all
//   golden FILE     compares them with a file of such lines; those that it does not know of fail, too
#include "Hash.h"

#include <cinttypes>
#include <cstdio>
#include <fstream>
#include <map>
#include <string>

#ifndef LXCOLOR_GOLDEN_NUMERIC_ONLY
#    include <QCoreApplication>
#    include <QLoggingCategory>
#endif

int main(int argc, char* argv[])
{
    std::vector<Operation> operations = numericOperations();
#ifndef LXCOLOR_GOLDEN_NUMERIC_ONLY
    const QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("*=false"));
    operations.insert(operations.end(), libraryOperations().begin(), libraryOperations().end());
#endif
    std::map<std::string, std::string> expected;
    std::ifstream file(argc > 1 ? argv[1] : "");
    for (std::string name, hash; file >> name >> hash;)
        expected[name] = hash;

    int differences = 0;
    for (const Operation& operation : operations) {
        char hash[17];
        std::snprintf(hash, sizeof hash, "%016" PRIx64, hashOf(operation, 1));
        const bool isExpected = argc < 2 || expected[operation.name] == hash;
        std::printf("%s %s%s\n", operation.name, hash, isExpected ? "" : "  DIFFERS");
        differences += isExpected ? 0 : 1;
    }
    return differences == 0 ? 0 : 1;
}
