#include "app/AppState.h"
