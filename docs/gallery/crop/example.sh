orlix crop head.tif front.tif --at 32,0,20 --size 64,64,40
