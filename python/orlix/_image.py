"""What pickles of images call."""

from . import _core


def restore(data, axes, pixel_size, unit, origin, element_type):
    """Make the image again."""
    return _core.Image(data, axes, pixel_size=pixel_size, unit=unit, origin=origin, element_type=element_type)
