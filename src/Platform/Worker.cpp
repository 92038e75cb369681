#include "Worker.h"

QThreadPool& diskPool()
{
    // Never destroyed: that would wait for a disk that hangs, and keep the program from ending.
    static QThreadPool* const pool = [] {
        auto* made = new QThreadPool;
        made->setMaxThreadCount(mostDiskThreads);
        return made;
    }();
    return *pool;
}
