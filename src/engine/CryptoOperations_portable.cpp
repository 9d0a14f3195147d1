#include "engine/CryptoOperations.h"

CryptoOperations SystemCryptoOperations() {
    return OwnCryptoOperations();
}
