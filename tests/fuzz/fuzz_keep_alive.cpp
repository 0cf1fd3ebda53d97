#include "fuzz_check.h"
#include "fuzz_input.h"
#include "fuzz_targets.h"
#include "keep_alive.h"
#include "manual_clock.h"

#include <QByteArrayList>

namespace {

/// The filter on a line, and what comes out of it.
class FilteredLine
{
public:
    void set(const QByteArray& frame, const QByteArray& response) { m_filter.set(frame, response); }
    void start(int silenceMs) { m_filter.start(silenceMs); }
    void stop() { m_filter.stop(); }
    void frameSent() { m_filter.frameSent(); }
    void pass(int ms) { m_clock.advance(ms); }
    void arrive(const QByteArray& bytes, int manner)
    {
        const QVector<QByteArray> pieces = piecesOf(bytes, manner);
        for (const QByteArray& piece : pieces) {
            passedOn += m_filter.arrived(piece);
        }
    }

    bool refuses = false;
    int asked = 0;
    QByteArray passedOn;

private:
    KeepAlive::Callbacks callbacks()
    {
        return {[this](const QByteArray&) {
                    asked += refuses ? 0 : 1;
                    return !refuses;
                },
                [this](const QByteArray& bytes) { passedOn += bytes; }, [] {}};
    }

    ManualClock m_clock;
    KeepAlive m_filter{m_clock, callbacks()};
};

/// How things stood when somebody else's frame went out.
struct Frame
{
    bool isBetweenLines = false; // else the answer may have begun
    int asked = 0;
    int arrived = 0;
    int passedOn = 0;
};

/// What has arrived and must come out: pieces of lines that end with a line's end or with a question.
class Expectation
{
public:
    void arrive(const QByteArray& bytes)
    {
        for (const char byte : bytes) {
            m_segment += byte;
            if (byte == '\n') {
                cut();
            }
        }
    }
    /// What was cut off is not going to be continued, as far as the filter knows.
    void cut()
    {
        if (!m_segment.isEmpty()) {
            m_segments.append(m_segment);
        }
        m_segment.clear();
    }

    /// Each of them that does not begin like the answer, in order.
    bool isIn(const QByteArray& passedOn, const QByteArray& response) const
    {
        int from = 0;
        for (const QByteArray& segment : m_segments) {
            if (segment.startsWith(response)) {
                continue;
            }
            const int at = passedOn.indexOf(segment, from);
            if (at < 0) {
                return false;
            }
            from = at + segment.size();
        }
        return true;
    }

private:
    QByteArrayList m_segments;
    QByteArray m_segment;
};

} // namespace

/// The keep-alive's filter: what arrives in pieces leaves as what arrives whole, nothing is taken out before anything
/// was asked, nor between a frame and the next question, no line but an answer is ever taken out, and of what is added
/// there is at most a line's end a question.
void fuzz::keep_alive(const QByteArray& bytes)
{
    FuzzInput input(bytes);
    FilteredLine inPieces;
    FilteredLine whole;
    Expectation expectation;
    QByteArray arrived;
    Frame frame;
    QByteArray response = input.until('\n');
    response += input.flag() ? "" : "\r\n"; // behind it: what is read first is not left to the compiler
    if (response.isEmpty()) {
        return; // the command refuses it
    }
    const int manner = input.number(0, c_manners);
    for (FilteredLine* line : {&inPieces, &whole}) {
        line->set("DI:C", response);
        line->start(1000);
    }
    while (!input.isAtEnd()) {
        const int operation = input.number(0, 7);
        const QByteArray text = operation < 3 ? input.until('\n') + (operation < 2 ? "\r\n" : "") : QByteArray();
        const int ms = 100 * (operation == 3 ? input.number(0, 60) : 0);
        const int askedBefore = whole.asked;
        for (FilteredLine* line : {&inPieces, &whole}) {
            switch (operation) {
            case 4:
                line->frameSent();
                break;
            case 5:
                line->refuses = !line->refuses;
                break;
            case 6:
                line->set("DI:C", response);
                break;
            default:
                line->arrive(text, line == &whole ? 0 : manner);
                line->pass(ms);
            }
        }
        arrived += text;
        expectation.arrive(text);
        if (whole.asked > askedBefore) {
            expectation.cut();
        }
        if (operation == 4) {
            frame = {arrived.isEmpty() || arrived.endsWith('\n'), whole.asked, arrived.size(), whole.passedOn.size()};
        }
        FUZZ_CHECK(inPieces.passedOn == whole.passedOn);
        FUZZ_CHECK(whole.asked > 0 || whole.passedOn == arrived);
        FUZZ_CHECK(!frame.isBetweenLines || whole.asked > frame.asked ||
                   whole.passedOn.mid(frame.passedOn) == arrived.mid(frame.arrived));
    }
    inPieces.stop();
    whole.stop();
    FUZZ_CHECK(inPieces.passedOn == whole.passedOn);
    FUZZ_CHECK(whole.passedOn.size() <= arrived.size() + 2 * whole.asked);
    FUZZ_CHECK(expectation.isIn(whole.passedOn, response));
}
