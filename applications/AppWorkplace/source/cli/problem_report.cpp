#include "problem_report.h"

#include "console.h"

void tellProblem(Console& console, const Problem& problem)
{
    const QStringList lines = problem.lines();
    for (const QString& line : lines) {
        console.message(line);
    }
    if (console.isJson()) {
        console.object({{QStringLiteral("event"), QStringLiteral("error")},
                        {QStringLiteral("step"), problem.step},
                        {QStringLiteral("message"), problem.what},
                        {QStringLiteral("reason"), problem.cause},
                        {QStringLiteral("mend"), problem.mend}});
    }
}
