orlix normal grain.tif --size 192,96 --type UInt8 --mean 128 --deviation 32 --seed 1
