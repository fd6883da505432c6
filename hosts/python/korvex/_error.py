"""The failures of the library."""


class Error(Exception):
    """A failure that the library reports, with what the automation error object holds."""

    def __init__(self, number: int, description: str = "", source: str = "Korvex") -> None:
        super().__init__(number, description, source)
        self.number: int = number
        self.description: str = description
        self.source: str = source

    def __str__(self) -> str:
        return f"{self.description} (error {self.number})"
