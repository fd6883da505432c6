"""Data objects of a Python host's own."""

import korvex
from korvex import QORAttributes as att


class Data(korvex.QORObjectLike):
    """A data object over any definition; the definition of a value answers for that of a child."""

    def __init__(self, definition=None, parent=None):
        self.DataDef = definition
        self.Parent = parent
        self.Modified = False
        self.values = {}
        self.items = []
        self.state = {}

    def definitions(self):
        return self.DataDef.ObjectAttribute(att.attValues)

    def find(self, attribute, name):
        for value in self.definitions():
            if value.StringAttribute(attribute) == name:
                return value
        raise KeyError(name)

    def LongAttribute(self, AttributeID):
        return self.state.get(AttributeID, 0)

    IntegerAttribute = LongAttribute

    def SetLongAttribute(self, AttributeID, newValue):
        self.state[AttributeID] = newValue

    SetIntegerAttribute = SetLongAttribute

    def Value(self, Index):
        return self.values.get(Index)

    def SetValue(self, Index, newValue):
        self.values[Index] = newValue

    def NamedValue(self, Name):
        value = self.find(att.attName, Name)
        index = value.LongAttribute(att.attValueIndex)
        if value.HasAttribute(att.attValues) and index not in self.values:
            self.values[index] = type(self)(value, self)
        return self.values.get(index)

    def ValueIndex(self, FieldName):
        return self.find(att.attFieldName, FieldName).LongAttribute(att.attValueIndex)

    def AddItem(self, vnt1=..., vnt2=...):
        self.items.append(type(self)(self.DataDef.ObjectAttribute(att.attElementDef), self))
        return self.items[-1]

    def __iter__(self):
        return iter(self.items)

    def to_dict(self):
        """As korvex.DataObject.to_dict, where every value was loaded."""
        members = {}
        for value in self.definitions():
            held = self.values.get(value.LongAttribute(att.attValueIndex))
            if held is not None:
                members[value.StringAttribute(att.attName)] = held.to_dict() if isinstance(held, Data) else held
        names = ("SelectState", "Counter")
        numbers = (att.attSelectState, att.attCounter)
        if self.DataDef.HasAttribute(att.attElementDef):
            names, numbers = ("SelectedItem", "CounterHolder"), (att.attSelectedItem, att.attCounterHolder)
            members["$items"] = [item.to_dict() for item in self.items]
        state = {name: self.state.get(number, 0) for name, number in zip(names, numbers)}
        return members | ({"$state": state} if any(state.values()) else {})


class Part(korvex.QORObjectLike):
    """A definition of a host's own, or a part of it: its attributes, and the items of a collection."""

    def __init__(self, attributes=(), items=()):
        self.attributes = dict(attributes)
        self.items = list(items)

    def StringAttribute(self, AttributeID):
        return self.attributes.get(AttributeID, "")

    def LongAttribute(self, AttributeID):
        return self.attributes.get(AttributeID, 0)

    def BooleanAttribute(self, AttributeID):
        return self.attributes.get(AttributeID, False)

    def ObjectAttribute(self, AttributeID):
        return self.attributes.get(AttributeID)

    def HasAttribute(self, AttributeID):
        return AttributeID in self.attributes

    def __iter__(self):
        return iter(self.items)


def flat_definition(table, key, columns):
    """The definition of objects with plain values only; the key is the last of them."""
    values = []
    for index, column in enumerate([*columns, key]):
        names = {att.attName: column, att.attFieldName: column, att.attValueIndex: index}
        values.append(Part({**names, att.attIsIncluded: True, att.attIsAutoNumber: column == key}))
    lists = {att.attValues: values, att.attPrimaryKeys: [Part({att.attName: key})], att.attForeignKeys: []}
    parts = {attribute: Part(items=items) for attribute, items in lists.items()}
    return Part({att.attTableName: table, att.attIsIncluded: True, **parts})
