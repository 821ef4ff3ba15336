import numpy as np

import orlix

head = orlix.read("head.tif")
box = np.asarray(head)[20:80, 40:88, 40:88]  # a view of its pixels
orlix.erase(box, 65535)  # in place
orlix.write("erased.tif", head)
