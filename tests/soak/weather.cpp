#include "weather.h"

#include <random>

namespace {
constexpr int c_firstMinuteMs = 60000;

/// Draws without the distributions of the standard library, which differ from one library to the next.
class Draw
{
public:
    explicit Draw(quint32 seed) : m_engine(seed) {}

    /// Both included.
    int between(int low, int high) { return low + static_cast<int>(m_engine() % static_cast<quint32>(high - low + 1)); }
    bool oneIn(int chances) { return between(1, chances) == 1; }
    template <class List>
    auto oneOf(const List& list)
    {
        return list[static_cast<size_t>(between(0, static_cast<int>(std::size(list)) - 1))];
    }

private:
    std::mt19937 m_engine;
};

QString number(int value)
{
    return QString::number(value);
}

/// Faults that come once, take a frame along or the whole line away.
QString disturbance(Draw& draw)
{
    const QString ms = number(draw.between(1, 3000));
    const QString texts[] = {QStringLiteral("silence"),
                             QStringLiteral("late:") + ms,
                             QStringLiteral("err:") + number(draw.between(1, 5)),
                             QStringLiteral("out-of-range:,") + ms,
                             QStringLiteral("out-of-range"),
                             QStringLiteral("lose-link"),
                             QStringLiteral("unplug:") + ms,
                             QStringLiteral("foreign-echo"),
                             QStringLiteral("flood:%1,%2").arg(draw.between(1, 300)).arg(draw.between(0, 3000)),
                             QStringLiteral("endless:%1,%2").arg(draw.between(1, 20000)).arg(draw.between(0, 3000)),
                             QStringLiteral("duplicate-serial")};
    const QString when = number(draw.between(1, 30));
    const QString triggers[] = {QLatin1Char('@') + when, QLatin1Char('@') + when,
                                QLatin1Char('@') + when + QLatin1Char('+'),
                                QLatin1Char('%') + number(draw.between(1, 10))};
    return draw.oneOf(texts) + draw.oneOf(triggers);
}

/// Faults that change what is sent, or only its shape.
QString noise(Draw& draw)
{
    const QString texts[] = {QStringLiteral("split:%1,%2").arg(draw.between(1, 9)).arg(draw.between(0, 20)),
                             QStringLiteral("glue:%1,%2").arg(draw.between(2, 5)).arg(draw.between(1, 300)),
                             QStringLiteral("echo"),
                             QStringLiteral("cut"),
                             QStringLiteral("flip:%1").arg(draw.between(1, 3)),
                             QStringLiteral("double"),
                             QStringLiteral("garbage:%1").arg(draw.between(1, 40)),
                             QStringLiteral("lower-case")};
    const QString triggers[] = {QString(), QLatin1Char('%') + number(draw.between(1, 20)),
                                QLatin1Char('%') + number(draw.between(1, 5)),
                                QLatin1Char('@') + number(draw.between(1, 30))};
    const int kind = draw.between(0, 7);
    const bool isShape = kind <= 2;
    // What changes each line lets nothing come about.
    return texts[kind] + triggers[draw.between(isShape ? 0 : 1, 3)];
}

QString fault(Draw& draw)
{
    return draw.oneIn(2) ? disturbance(draw) : noise(draw);
}

QString command(Draw& draw)
{
    const char* const commands[] = {"tighten 3",     "tighten 1",      "lose-link",       "range 2210 off",
                                    "range 2210 on", "range 2210 on",  "fault silence@1", "fault late:700@1",
                                    "fault err:2@1", "power 2210 off", "power 2210 on"};
    return QLatin1String(draw.oneOf(commands));
}
} // namespace

Weather::Weather(quint32 seed)
{
    Draw draw(seed);
    const auto add = [this](const char* option, const QString& value) {
        options += {QLatin1String("--") + QLatin1String(option), value};
    };
    const char* const delays[] = {"0", "5", "20", "150", "900"};
    const char* const rates[] = {"0.3", "1", "4", "20", "100"};
    const char* const modes[] = {"redial", "redial", "drop", "transparent"};
    add("seed", number(static_cast<int>(seed)));
    add("rate", QLatin1String(draw.oneOf(rates)));
    add("link-delay", QLatin1String(draw.oneOf(delays)));
    add("answer-delay", QLatin1String(draw.oneOf(delays)));
    add("scan-period", number(draw.between(100, 3000)));
    add("mode", QLatin1String(draw.oneOf(modes)));
    const int programs = draw.between(1, 6);
    add("programs", number(programs));
    const int others = draw.between(0, 4);
    for (int i = 0; i < others; ++i) {
        add("wrench", number(2211 + i));
    }
    if (!draw.oneIn(20)) {
        add("wrench", QStringLiteral("2210"));
    } else if (others == 0) {
        add("wrench", QStringLiteral("2299"));
    }
    const int faults = draw.oneIn(4) ? 0 : draw.between(1, 4);
    for (int i = 0; i < faults; ++i) {
        add("fault", fault(draw));
    }

    const int commands = draw.oneIn(2) ? 0 : draw.between(1, 5);
    for (int i = 0; i < commands; ++i) {
        events.append({draw.between(0, c_firstMinuteMs), command(draw)});
    }
    if (draw.oneIn(4)) {
        const int atMs = draw.between(0, c_firstMinuteMs / 2);
        events.append({atMs, QStringLiteral("unplug")});
        events.append({atMs + draw.between(1, 9000), QStringLiteral("replug")});
    }

    order.serialId = QStringLiteral("2210");
    if (draw.oneIn(2)) {
        order.program = draw.between(1, draw.oneIn(5) ? programs + 1 : programs);
    }
    order.durationMs = draw.between(1000, 40000); // a wrench that has gone sends no results to count
    order.results = draw.oneIn(2) ? draw.between(1, 30) : 0;
    order.reconnects = !draw.oneIn(5);
    order.reconnectLimitMs = draw.between(3000, 60000);
    order.pauseSeed = seed + 1; // 0 would be any
    if (draw.oneIn(5)) {
        interruptMs = draw.between(0, c_firstMinuteMs / 2);
    }
}

QString Weather::text() const
{
    QStringList lines{QStringLiteral("wrench_simulator ") + options.join(QLatin1Char(' '))};
    for (const Event& event : events) {
        lines.append(QStringLiteral("after %1 ms: %2").arg(number(event.atMs), event.command));
    }
    lines.append(QStringLiteral("session --program %1 --count %2 --duration %3 ms, %4%5")
                     .arg(order.program ? number(*order.program) : QStringLiteral("-"), number(order.results),
                          number(order.durationMs),
                          order.reconnects ? QStringLiteral("reconnecting for %1 ms").arg(order.reconnectLimitMs)
                                           : QStringLiteral("not reconnecting"),
                          interruptMs ? QStringLiteral(", interrupted after %1 ms").arg(*interruptMs) : QString()));
    return lines.join(QStringLiteral("\n  "));
}
