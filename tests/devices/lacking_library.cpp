// A remote access library that lacks CeGetVersionEx. Nothing of it may be called.
#include <cstdlib>

extern "C" {
void CeRapiInitEx() { std::abort(); }
void CeRapiUninit() { std::abort(); }
void CeCreateFile() { std::abort(); }
void CeReadFile() { std::abort(); }
void CeWriteFile() { std::abort(); }
void CeCloseHandle() { std::abort(); }
void CeDeleteFile() { std::abort(); }
void CeFindFirstFile() { std::abort(); }
void CeFindClose() { std::abort(); }
void CeCreateProcess() { std::abort(); }
}
