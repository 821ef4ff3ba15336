{ echo x,y,z; seq 0 0.5 127 | sed 's/$/,60.25,35.5/'; } > line.csv
orlix values head.tif line.csv --interpolation cubic --out profile.csv
