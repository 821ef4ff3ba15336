orlix copy head.tif copy.tif
