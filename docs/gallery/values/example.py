import numpy as np

import orlix

head = orlix.read("head.tif")
x = np.arange(0, 127.5, 0.5)
points = np.stack([np.full_like(x, 35.5), np.full_like(x, 60.25), x], axis=1)  # (z, y, x)
values = orlix.values(head, points, interpolation="cubic")
with open("profile.csv", "w") as table:
    print("x,y,z,value", file=table)
    for (pz, py, px), value in zip(points, values):
        print(px, py, pz, value, sep=",", file=table)
