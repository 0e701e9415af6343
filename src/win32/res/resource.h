#pragma once

// Numbers of the module's resources and of the controls in its dialogs, for the resource script and the sources alike.
// The numbers are known outside: tools that drive the dialogs go by them.

#define IDD_MULTI_RENAME 150
#define IDD_CHANGE_WILD 151
#define IDD_CHANGE_NUMBER 152

#define IDI_MULTI_RENAME 250

#define IDB_STATUS_READY 351
#define IDB_STATUS_UNCHANGED 352
#define IDB_STATUS_PENDING 353
#define IDB_STATUS_EMPTY 354
#define IDB_STATUS_SAME_NAME 355
#define IDB_STATUS_EXISTING_NAME 356
#define IDB_STATUS_INVALID 357

#define IDC_PART_EDIT 1500
#define IDC_PART_BUTTON 1501
#define IDC_NAMES_LIST 1503
#define IDC_COPY_NAMES 1504
#define IDC_PASTE_NAMES 1505
#define IDC_ALLOW_EXTENSION_CHANGES 1506
#define IDC_NUMBERS_AS_TEXT 1507
#define IDC_RESET 1508

#define IDC_WILD_RESET 1509
#define IDC_WILD_CLEAR_TEXT 1510
#define IDC_CASE_STYLE 1511
#define IDC_TRUNCATE 1514
#define IDC_LENGTH 1515

#define IDC_NUMBER_RESET 1517
#define IDC_NUMBER_CLEAR_TEXT 1518
#define IDC_START 1519
#define IDC_DIGITS 1520
#define IDC_ZEROS_NO_CHANGE 1521
#define IDC_ZEROS_REMOVE 1522
#define IDC_ZEROS_FIXED_DIGITS 1523
#define IDC_NUMBER_NO_CHANGE 1524
#define IDC_NUMBER_CLEAR 1525
#define IDC_NUMBER_RENUMBER 1526
