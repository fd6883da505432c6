# Filled by the install rules: library, headers, package files, the command.
