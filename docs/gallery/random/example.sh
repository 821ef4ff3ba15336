orlix random noise.tif --size 192,96 --type UInt8 --min 64 --max 191 --seed 1
