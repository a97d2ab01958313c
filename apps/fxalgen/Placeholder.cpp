// The commands are added to this library file by file.
namespace FX_Algen {}
