// For the linker: the functions of host_numbers.h are there. The package has them in numbers.js.
mergeInto(LibraryManager.library, {
    readNumber: () => 0,
    writeScientific: () => 0,
    writeFixed: () => 0,
});
