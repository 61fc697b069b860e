#include "hvutils/Sleep.h"

#include <QThread>

void Sleep(unsigned long milliseconds)
{
    QThread::msleep(milliseconds);
}
