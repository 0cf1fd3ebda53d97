#include "window_types.h"

#include <QtQml>

#include "panel_view.h"
#include "run_chart.h"

void registerWindowTypes()
{
    qmlRegisterType<PanelView>("Workplace", 1, 0, "PanelView");
    qmlRegisterType<RunChart>("Workplace", 1, 0, "RunChart");
}
