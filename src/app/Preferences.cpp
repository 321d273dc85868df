#include "app/Preferences.h"
