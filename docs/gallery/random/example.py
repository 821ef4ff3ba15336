import numpy as np

import orlix

noise = orlix.random((96, 192), np.uint8, low=64, high=191, rng=1)  # the seed
orlix.write("noise.tif", noise)
