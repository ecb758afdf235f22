#include "app/Termination.h"

#include "core/Platform.h"
#include "session/frmMain.h"

void CloseOnTermination()
{
    OnTermination([] {
        if (frmMain *main = frmMain::Form())
            main->Unload(UnloadMode::TaskManager);
    });
}
