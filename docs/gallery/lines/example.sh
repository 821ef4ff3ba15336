orlix lines lines.tif --size 320,160 --spacing 12 --theta 30
orlix lines volume.tif --size 128,128,128 --spacing 32 --theta 20 --phi 30
