#include "plugin/logic/ViewTab.h"

bool isPaletteTab(const QString& tabName)
{
    return tabName.compare(QLatin1String("Sequence View"), Qt::CaseInsensitive) == 0 ||
           tabName.compare(QLatin1String("3D View"), Qt::CaseInsensitive) == 0;
}
