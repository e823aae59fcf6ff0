# Makes the header, the identifiers and the type library from an interface definition file.
