#include "console/Zorvak.h"

int wmain();
int wmain() {
    return RunZorvak({});
}
