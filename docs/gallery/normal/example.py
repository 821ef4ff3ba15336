import numpy as np

import orlix

grain = orlix.normal((96, 192), np.uint8, mean=128, deviation=32, rng=1)  # the seed
orlix.write("grain.tif", grain)
