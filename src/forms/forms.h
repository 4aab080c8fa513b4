// All that a dialog is written with.
#pragma once

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/file_lists.h"
#include "forms/form.h"
#include "forms/form_slot.h"
#include "forms/grid.h"
#include "forms/indicators.h"
#include "forms/layout.h"
#include "forms/list_view.h"
#include "forms/lists.h"
#include "forms/menu.h"
#include "forms/text_controls.h"
#include "forms/tree_view.h"
