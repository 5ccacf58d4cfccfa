// Paints what a terminal would show: reads text with SGR sequences (bold, 24-bit colours) from standard input and
// writes a PNG.   terminalpicture OUT.png < TEXT

#include <QFile>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QLoggingCategory>
#include <QPainter>
#include <QRegularExpression>
#include <QTextStream>

#include <cstdio>

namespace {

constexpr int kTextPixels = 15;
constexpr int kMargin = 14;
const QColor kPaper(30, 32, 37);
const QColor kInk(222, 225, 230);

/// Characters that look alike.
struct Run
{
    QString text;
    QColor ink = kInk;
    QColor paper; // none: that of the terminal
    bool isBold = false;
};

void apply(const QStringList& codes, Run& style)
{
    for (int i = 0; i < codes.size(); ++i) {
        const int code = codes[i].toInt();
        if (code == 0)
            style = Run();
        else if (code == 1)
            style.isBold = true;
        else if ((code == 38 || code == 48) && codes.value(i + 1) == QLatin1String("2")) {
            const QColor color(codes.value(i + 2).toInt(), codes.value(i + 3).toInt(), codes.value(i + 4).toInt());
            (code == 38 ? style.ink : style.paper) = color;
            i += 4;
        }
    }
}

QVector<Run> runsOf(const QString& line)
{
    static const QRegularExpression sequence(QStringLiteral("\x1b\\[([0-9;]*)m"));
    QVector<Run> runs;
    Run style;
    int from = 0;
    const auto take = [&](int to) {
        style.text = line.mid(from, to - from);
        if (!style.text.isEmpty())
            runs.append(style);
    };
    for (auto matches = sequence.globalMatch(line); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        take(match.capturedStart());
        apply(match.captured(1).split(QLatin1Char(';')), style);
        from = match.capturedEnd();
    }
    take(line.size());
    return runs;
}

int columnsOf(const QVector<Run>& runs)
{
    int columns = 0;
    for (const Run& run : runs)
        columns += run.text.size();
    return columns;
}

QImage pictureOf(const QVector<QVector<Run>>& lines)
{
    QFont font(QStringLiteral("DejaVu Sans Mono"));
    font.setStyleHint(QFont::Monospace);
    font.setPixelSize(kTextPixels);
    const QFontMetrics metrics(font);
    const int cell = metrics.horizontalAdvance(QLatin1Char('0')); // of which every character gets one
    int columns = 0;
    for (const QVector<Run>& line : lines)
        columns = qMax(columns, columnsOf(line));

    QImage image(columns * cell + 2 * kMargin, lines.size() * metrics.lineSpacing() + 2 * kMargin,
                 QImage::Format_RGB32);
    image.fill(kPaper);
    QPainter painter(&image);
    int top = kMargin;
    for (const QVector<Run>& line : lines) {
        int left = kMargin;
        for (const Run& run : line) {
            const int width = run.text.size() * cell;
            if (run.paper.isValid())
                painter.fillRect(left, top + 1, width, metrics.lineSpacing() - 2, run.paper);
            font.setBold(run.isBold);
            painter.setFont(font);
            painter.setPen(run.ink);
            for (const QChar character : run.text) {
                painter.drawText(left, top + metrics.ascent(), character);
                left += cell;
            }
        }
        top += metrics.lineSpacing();
    }
    return image;
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false")); // of folders that sessions have
    const QGuiApplication app(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 2) {
        std::fputs("usage: terminalpicture OUT.png < TEXT\n", stderr);
        return 2;
    }
    QTextStream input(stdin);
    input.setCodec("UTF-8");
    QVector<QVector<Run>> lines;
    while (!input.atEnd())
        lines.append(runsOf(input.readLine()));
    if (lines.isEmpty() || !pictureOf(lines).save(arguments[1])) {
        std::fprintf(stderr, "terminalpicture: cannot write %s\n", qUtf8Printable(arguments[1]));
        return 1;
    }
    return 0;
}
