#include "InputLines.h"

#include <cstdio>
#include <iostream>
#include <vector>

void forEachInputLine(std::size_t longest, const std::function<void(int, const QString&)>& use)
{
    std::vector<char> line(longest + 1);
    int number = 0;
    while (std::cin.getline(line.data(), static_cast<std::streamsize>(line.size()))) {
        // gcount() includes the line end, which the last line may lack.
        const auto length = static_cast<int>(std::cin.gcount()) - (std::cin.eof() ? 0 : 1);
        const QString text = QString::fromUtf8(line.data(), length);
        ++number;
        if (!text.trimmed().isEmpty())
            use(number, text);
    }
    if (std::cin.gcount() > 0)
        throw CommandError(
            QStringLiteral("standard input, line %1: longer than %2 bytes").arg(number + 1).arg(longest));
    if (std::cin.bad() || std::ferror(stdin) != 0)
        throw CommandError(QStringLiteral("cannot read standard input"), CommandError::Surroundings);
}

CommandError atInputLine(int number, const CommandError& error)
{
    return CommandError(
        QStringLiteral("standard input, line %1: %2").arg(QString::number(number), QString::fromUtf8(error.what())),
        error.status());
}
