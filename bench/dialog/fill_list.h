#pragma once

// Numbers of the resources, for the resource script and the source alike.

#define IDD_FILL_LIST 100
#define IDC_LIST 1503
