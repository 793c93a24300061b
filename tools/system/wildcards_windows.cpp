// The shells of Windows leave patterns like *.bmp to the programs; this asks the C library's start
// to expand those that are not quoted.
extern "C" {
extern int _dowildcard;
int _dowildcard = -1;
}
