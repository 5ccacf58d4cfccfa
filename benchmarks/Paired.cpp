#include "MarkdownTable.h"
#include "Suite.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <map>

namespace {

/// Processor time of this thread: what other processes do in between does not count, nor does waiting for a disk.
double processorSeconds()
{
    timespec time;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

double secondsOf(const Work& work, qint64 times)
{
    if (work.prepare)
        work.prepare();
    const double start = processorSeconds();
    work.run(times);
    return processorSeconds() - start;
}

double quantile(std::vector<double> values, double share)
{
    const auto place =
        values.begin() + static_cast<std::ptrdiff_t>(share * static_cast<double>(values.size() - 1) + 0.5);
    std::nth_element(values.begin(), place, values.end());
    return *place;
}

double median(const std::vector<double>& values) { return quantile(values, 0.5); }

/// A contender in a race.
class Runner
{
public:
    Runner(const Contender& contender, double turnSeconds) : name(contender.name), m_work(contender.make())
    {
        // Warms up for twenty turns as it finds out how often the work fits into one: what is made on first use is
        // there by then.
        constexpr double kWarmUpTurns = 20.0;
        if (m_work.prepare)
            return;
        double took = secondsOf(m_work, 1);
        while (took < kWarmUpTurns * turnSeconds) {
            m_times *= 2;
            took = secondsOf(m_work, m_times);
        }
        m_times = std::max<qint64>(1, static_cast<qint64>(static_cast<double>(m_times) * turnSeconds / took));
    }

    void takeTurn() { seconds.push_back(secondsOf(m_work, m_times) / static_cast<double>(m_times)); }

    QString name;
    std::vector<double> seconds; ///< Of one piece of work, by round.

private:
    Work m_work;
    qint64 m_times = 1;
};

std::vector<Runner> race(const Case& c, const PairedOptions& options)
{
    std::vector<Runner> runners;
    for (const Contender& contender : c.contenders)
        runners.emplace_back(contender, options.turnSeconds);
    const double start = processorSeconds();
    for (int round = 0; round < options.rounds; ++round) {
        if (round >= 5 && processorSeconds() - start > options.caseSeconds)
            break;
        // Each round begins with another contender, so that none has always the same one before it.
        for (std::size_t k = 0; k < runners.size(); ++k)
            runners[(k + static_cast<std::size_t>(round)) % runners.size()].takeTurn();
    }
    return runners;
}

QString threeDigits(double value)
{
    const int before = value >= 1.0 ? static_cast<int>(std::floor(std::log10(value))) + 1 : 1;
    return QString::number(value, 'f', std::max(0, 3 - before));
}

QString timeText(double seconds)
{
    if (seconds < 1e-6)
        return threeDigits(seconds * 1e9) + QLatin1String(" ns");
    if (seconds < 1e-3)
        return threeDigits(seconds * 1e6) + QLatin1String(" us");
    return threeDigits(seconds * 1e3) + QLatin1String(" ms");
}

/// The time of a contender, and how many times as long as the library it takes, round by round.
QString besideLibrary(const Runner& library, const Runner& other, qint64 items)
{
    std::vector<double> ratios;
    for (std::size_t round = 0; round < library.seconds.size(); ++round)
        ratios.push_back(other.seconds[round] / library.seconds[round]);
    return QStringLiteral("%1, %2 x")
        .arg(timeText(median(other.seconds) / static_cast<double>(items)), threeDigits(median(ratios)));
}

/// The table of a group.
class GroupTable
{
public:
    explicit GroupTable(bool hasSeries) : m_hasSeries(hasSeries), m_table(heads(hasSeries)) {}

    void add(const Case& c, const std::vector<Runner>& runners)
    {
        const Runner& library = runners.front();
        const double time = median(library.seconds);
        const double spread = (quantile(library.seconds, 0.75) - quantile(library.seconds, 0.25)) / time;
        QString plain;
        QStringList peers;
        for (std::size_t k = 1; k < runners.size(); ++k) {
            const QString text = besideLibrary(library, runners[k], c.items);
            if (runners[k].name == kPlain)
                plain = text;
            else
                peers << runners[k].name + QLatin1Char(' ') + text;
        }
        const double ofPart = time / static_cast<double>(c.items);
        QStringList row{c.work, timeText(ofPart), QString::number(100.0 * spread, 'f', 0) + QLatin1String(" %")};
        row << (m_hasSeries ? growth(c.series, ofPart) : plain) << peers.join(QLatin1String("; "));
        m_table.add(row);
    }

    void print() const { m_table.print(); }

private:
    static QStringList heads(bool hasSeries)
    {
        return {QStringLiteral("Work"), QStringLiteral("Library"), QStringLiteral("spread"),
                hasSeries ? QStringLiteral("growth") : QStringLiteral("Plain form"), QStringLiteral("Peers")};
    }
    QString growth(const QString& series, double time)
    {
        const auto first = m_first.insert({series, time}).first;
        return threeDigits(time / first->second) + QLatin1String(" x");
    }

    bool m_hasSeries;
    std::map<QString, double> m_first; ///< The time of the first case of a series.
    MarkdownTable m_table;
};

} // namespace

void printPaired(const Cases& cases, const PairedOptions& options)
{
    for (auto first = cases.begin(); first != cases.end();) {
        const auto last = std::find_if(first, cases.end(), [&](const Case& c) { return c.group != first->group; });
        std::printf("### %s\n\n", qUtf8Printable(first->group));
        GroupTable table(!first->series.isEmpty());
        for (auto c = first; c != last; ++c)
            table.add(*c, race(*c, options));
        table.print();
        std::fflush(stdout);
        first = last;
    }
}
