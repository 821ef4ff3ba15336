"""Processors by name: every operator of the libraries, with the attributes that it has there."""

from __future__ import annotations

import collections
import functools
import re
from collections.abc import Mapping
from typing import TYPE_CHECKING, Any, NamedTuple

import numpy as np

from . import _core
from ._pixelwise import Comparison

if TYPE_CHECKING:
    from ._types import Progress


class Attribute(NamedTuple):
    """A named input or output of a processor.

    Attributes
    ----------
    name : str
        The keyword of a call.
    kind : str
        What it holds: "image", "number", "one of nearest, linear, cubic".
    tool_tip : str
        What it is for.
    optional : bool
        It may be left out.
    output : bool
        It is written by the call.
    required : bool
        No call without it: outputs are, where the processor makes none itself.
    default : str or None
        What it holds where it is left out, as a text.

    Examples
    --------
    >>> first = orlix.processor("BasicThresholdImgLvl1").attributes[0]
    >>> first.name, first.kind, first.required
    ('InImg', 'image', True)
    """

    name: str
    kind: str
    tool_tip: str
    optional: bool
    output: bool
    required: bool
    default: str | None


def _text_of(value: Any, kind: str) -> str:
    """The text that the attribute takes for the value."""
    if "Real32" in kind:
        name = value if isinstance(value, str) else str(np.dtype(value).name)
        return {"float32": "Real32", "bool": "Binary"}.get(name, name)
    if isinstance(value, str):
        return value
    if isinstance(value, (bool, np.bool_)):
        return "yes" if value else "no"
    if isinstance(value, (int, np.integer)):
        return str(int(value))
    if isinstance(value, (float, np.floating)):
        return repr(float(value))
    if isinstance(value, Mapping):
        return ",".join(f"{name}={_text_of(part, '')}" for name, part in value.items())
    rows = np.asarray(value)
    if rows.dtype.kind not in "biuf" or rows.ndim not in (1, 2):
        raise TypeError(f"a value of type {type(value).__name__}: {kind} is needed")
    table = rows.reshape(len(rows), -1)
    columns = re.findall(r"(\w+)=<", kind)[: table.shape[1]]  # rows may leave the last ones out
    lines = [columns] if columns else []
    lines += [[_text_of(number, "") for number in row] for row in table.tolist()]
    return ";".join(",".join(line) for line in lines)


def _outputs(processor: str, names: tuple[str, ...], values: tuple[Any, ...]) -> Any:
    """A named tuple, which pickles although its class is made here."""
    return _class_of_outputs(processor, names)._make(values)


@functools.cache
def _class_of_outputs(processor: str, names: tuple[str, ...]) -> Any:
    def reduce(self: Any) -> tuple[Any, ...]:
        return _outputs, (processor, names, tuple(self))

    base = collections.namedtuple(f"{processor}Outputs", names)  # type: ignore[misc]
    return type(base.__name__, (base,), {"__slots__": (), "__reduce__": reduce})


def _result_of(value: Any) -> Any:
    """What Python gets of an output that is no image."""
    return Comparison(*value) if isinstance(value, tuple) else value


def _short(name: str) -> str:
    return name.rpartition("::")[2]


def _full_name(name: str) -> str:
    """The one name in the libraries that is `name`, or ends in it."""
    if not isinstance(name, str):
        raise TypeError(f"name is of type {type(name).__name__}: a str is needed")
    known = _core.processors()
    meant = [name] if name in known else [one for one in known if _short(one) == name]
    if len(meant) == 1:
        return meant[0]
    if meant:
        raise ValueError(f"{name} is the name of several processors: {', '.join(meant)}")
    import difflib  # for those who mistype

    short = [_short(one) for one in known]
    begin = [one for one in short if one.lower().startswith(_short(name).lower())] if name else []
    near = begin[:4] or difflib.get_close_matches(_short(name), short)
    hint = f"near it {'is' if len(near) == 1 else 'are'} {', '.join(near)}" if near else "orlix.processors() lists all"
    raise ValueError(f"there is no processor {name}: {hint}")


class Processor:
    """A processor of the libraries, to be called with its attributes as keywords.

    Inputs and outputs that are images take arrays and `Image` alike, numbers are numbers, names are texts, records are
    mappings (``{"X": 3, "Y": 4}``) and tables rows of numbers. Places and sizes are those of the libraries, x first.

    Parameters
    ----------
    name : str
        One of `processors()`.
    **values
        Attributes that every call has unless it says otherwise.

    See Also
    --------
    processor : Makes one.

    Examples
    --------
    >>> orlix.Processor("CopyImgLvl1")
    <orlix.Processor CopyImgLvl1(InImg, OutImg)>
    """

    def __init__(self, name: str, /, **values: Any) -> None:
        self._full_name = _full_name(name)
        self._name = _short(self._full_name)
        self._tool_tip, attributes = _core.processor(self._full_name)
        self._attributes = tuple(Attribute(*fields) for fields in attributes)
        self._values = dict(values)
        self._check_names(values)

    @property
    def name(self) -> str:
        """The name without what stands before its last colon."""
        return self._name

    @property
    def tool_tip(self) -> str:
        """What the processor does."""
        return self._tool_tip

    @property
    def attributes(self) -> tuple[Attribute, ...]:
        """Inputs and outputs, in the order of the processor."""
        return self._attributes

    @property
    def values(self) -> dict[str, Any]:
        """Attributes that every call has."""
        return dict(self._values)

    def _check_names(self, values: Mapping[str, Any]) -> None:
        known = [attribute.name for attribute in self._attributes]
        for name in values:
            if name not in known:
                raise TypeError(f"{self._name} has no attribute {name}, but {', '.join(known)}")

    def __call__(self, *, progress: Progress | None = None, **values: Any) -> Any:
        """Run with these attributes.

        Parameters
        ----------
        progress : callable or bool, optional
            As for `orlix.copy`.
        **values
            Attributes. An output that is given is written and returned.

        Returns
        -------
        The output, or a named tuple where there are several: an array, or an `Image` where an input is one; a
        `Comparison`; an array of values; else the text of what it holds.

        Raises
        ------
        TypeError
            There is no such attribute, one is missing, or a value doesn't fit it.
        OrlixError
            A rule of the processor is broken.
        """
        self._check_names(values)
        given = {name: value for name, value in {**self._values, **values}.items() if value is not None}
        images = {}
        texts = {}
        for attribute in self._attributes:
            if attribute.name not in given:
                if attribute.required:
                    raise TypeError(f"{self._name} needs {attribute.name}, {attribute.kind}: {attribute.tool_tip}")
            elif attribute.kind == "image":
                images[attribute.name] = given[attribute.name]
            else:
                texts[attribute.name] = _text_of(given[attribute.name], attribute.kind)
        made = _core.run_processor(self._full_name, images, texts, progress)
        if len(made) == 1:
            return _result_of(next(iter(made.values())))
        return _outputs(self._name, tuple(made), tuple(_result_of(value) for value in made.values()))

    def __reduce__(self) -> tuple[Any, ...]:
        return _restore, (self._full_name, self._values)

    def __repr__(self) -> str:
        return f"<orlix.Processor {self._name}({', '.join(attribute.name for attribute in self._attributes)})>"


def _restore(name: str, values: dict[str, Any]) -> Processor:
    return Processor(name, **values)


def processors() -> list[str]:
    """Return the names of all processors.

    Those of level 1 take whole images; what ends in Lvl2 or Lvl3 is a part of one, for parts of images.

    Returns
    -------
    list of str
        What `processor` takes.

    Examples
    --------
    >>> "CopyImgLvl1" in orlix.processors()
    True
    """
    names = _core.processors()
    short = [_short(name) for name in names]
    return [brief if short.count(brief) == 1 else name for name, brief in zip(names, short)]


def processor(name: str, /, **values: Any) -> Processor:
    """Return a processor by its name.

    Parameters
    ----------
    name : str
        One of `processors()`.
    **values
        Attributes that every call has unless it says otherwise.

    Returns
    -------
    Processor
        To be called with its attributes as keywords.

    Raises
    ------
    ValueError
        There is no processor of that name; the message has names that come near.

    Examples
    --------
    >>> mark = orlix.processor("BasicThresholdImgLvl1", InThresholdMin=5)
    >>> mark(InImg=np.array([[1, 5], [9, 12]], np.uint8), InThresholdMax=9)
    array([[False,  True],
           [ True, False]])
    >>> [attribute.name for attribute in mark.attributes]
    ['InImg', 'InThresholdMin', 'InThresholdMax', 'OutBinImg']
    """
    return Processor(name, **values)
