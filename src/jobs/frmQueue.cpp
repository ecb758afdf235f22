#include "jobs/frmQueue.h"

#include "jobs/Job.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace {
std::unique_ptr<frmQueue> loaded;
}

frmQueue::frmQueue()
{
    setObjectName(u"frmQueue"_s);
    FIFO.WhenChanged([] { Q_EMIT JobEvents::Of().QueueChanged(); });
    FIFO.Clear();
}

frmQueue &frmQueue::Form()
{
    if (!loaded)
        loaded.reset(new frmQueue);
    return *loaded;
}

bool frmQueue::IsLoaded()
{
    return loaded != nullptr;
}

void frmQueue::Unload()
{
    loaded.reset();
}
