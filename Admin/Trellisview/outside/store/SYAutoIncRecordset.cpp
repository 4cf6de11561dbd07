#include "outside/store/SYAutoIncRecordset.h"

int SYAutoIncRecordset::Update(int write) {
    if (write == 0) {
        DropPending();
        return 1;
    }
    WritePending();
    return 1;
}
