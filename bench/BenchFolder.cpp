#include "BenchFolder.h"

#include "core/AppFolder.h"

BenchFolder::BenchFolder()
{
    ChooseAppFolder(dir.path());
}
