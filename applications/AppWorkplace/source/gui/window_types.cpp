#include "window_types.h"

#include <QtQml>

#include "run_chart.h"

void registerWindowTypes()
{
    qmlRegisterType<RunChart>("Workplace", 1, 0, "RunChart");
}
