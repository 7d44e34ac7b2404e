// Symbols of the sample.
#define IDD_SAMPLE 0x65
#define IDC_SAMPLE_NAME 201
