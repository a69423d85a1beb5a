// This machine, as menus see it.
#pragma once

#include "menu/menu_system.h"

CMenuSystem ReadMenuSystem();
bool RunsOnWine();
