#include "console/Zorvak.h"

int main() {
    return RunZorvak({});
}
