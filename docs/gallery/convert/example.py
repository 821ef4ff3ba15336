import numpy as np

import orlix

head = orlix.read("head.tif")
real = orlix.convert(head, np.float32)
orlix.write("real.tif", real)
orlix.write("binary.tif", orlix.convert(real, bool))  # True from 1 on
