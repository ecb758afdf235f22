#include "jobs/frmCDQueue.h"

using namespace Qt::StringLiterals;

frmCDQueue::frmCDQueue()
{
    setObjectName(u"frmCDQueue"_s);
    FIFO.Clear();
}
