#ifndef TESTS_ROWS_H
#define TESTS_ROWS_H

#include <QtTest>

#include <tuple>
#include <utility>

/// The table of a data-driven test: \c {const Rows<QString, int> row;} in its _data(), followed by a line for each
/// case, \c {row("why it is there", "text", 2);}. The test takes the case that is its turn with fetched().
template <class... Columns>
class Rows
{
public:
    Rows() { addColumns(Numbers()); }
    void operator()(const QByteArray& reason, const Columns&... values) const
    {
        (QTest::newRow(reason.constData()) << ... << values);
    }
    static std::tuple<Columns...> fetched() { return fetch(Numbers()); }

private:
    using Numbers = std::index_sequence_for<Columns...>;

    template <std::size_t... number>
    static void addColumns(std::index_sequence<number...>)
    {
        (QTest::addColumn<Columns>(names[number]), ...);
    }
    template <std::size_t... number>
    static std::tuple<Columns...> fetch(std::index_sequence<number...>)
    {
        return {*static_cast<Columns*>(QTest::qData(names[number], qMetaTypeId<Columns>()))...};
    }

    static constexpr const char* names[] = {"1", "2", "3", "4", "5", "6"};
};

/// The case that is to be tested now: \c {const auto [text, number] = fetched<QString, int>();}.
template <class... Columns>
std::tuple<Columns...> fetched()
{
    return Rows<Columns...>::fetched();
}

#endif
