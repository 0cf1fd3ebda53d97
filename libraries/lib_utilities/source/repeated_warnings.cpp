#include <lib_utilities/repeated_warnings.h>

#include <utility>

namespace {

constexpr qint64 c_usPerMs = 1000;
constexpr int c_msPerSecond = 1000;

QString withCount(const QString& text, int count)
{
    // Without words: the text is in the language of whoever wrote it.
    return QStringLiteral("%1 (%2 × in %3 s)").arg(text).arg(count).arg(RepeatedWarnings::c_pauseMs / c_msPerSecond);
}

} // namespace

RepeatedWarnings::RepeatedWarnings(Clock& clock, const QLoggingCategory& (*category)())
    : m_clock(clock), m_category(category)
{}

RepeatedWarnings::~RepeatedWarnings()
{
    for (const Cause& cause : qAsConst(m_causes)) {
        m_clock.cancel(cause.timer);
        if (cause.heldBack > 0) {
            write(withCount(cause.newest, cause.heldBack));
        }
    }
}

void RepeatedWarnings::warn(const QString& cause, const QString& text)
{
    forgetOld();
    const auto known = m_causes.find(cause);
    if (known == m_causes.end()) {
        m_causes.insert(cause, {m_clock.nowUs(), 0, {}, 0});
        write(text);
        return;
    }
    ++known->heldBack;
    known->newest = text;
    if (known->timer == 0) {
        const qint64 passedMs = (m_clock.nowUs() - known->toldUs) / c_usPerMs;
        known->timer =
            m_clock.callAfter(int(qMax<qint64>(0, c_pauseMs - passedMs)), [this, cause] { tellHeldBack(cause); });
    }
}

void RepeatedWarnings::tellHeldBack(const QString& cause)
{
    Cause& told = m_causes[cause];
    const QString text = withCount(std::exchange(told.newest, {}), std::exchange(told.heldBack, 0));
    told.timer = 0;
    told.toldUs = m_clock.nowUs();
    write(text);
}

void RepeatedWarnings::forgetOld()
{
    const qint64 limitUs = m_clock.nowUs() - c_pauseMs * c_usPerMs;
    for (auto cause = m_causes.begin(); cause != m_causes.end();) {
        const bool isOver = cause->timer == 0 && cause->toldUs <= limitUs;
        cause = isOver ? m_causes.erase(cause) : std::next(cause);
    }
}

void RepeatedWarnings::write(const QString& text) const
{
    qCWarning(m_category).noquote() << text;
}
